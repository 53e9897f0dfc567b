#include "platform/run_time_error.hpp"
#include "processing/validation.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/outputs.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Validation : public testing::Test {
  protected:
    Validation() {
        MyDefaultSettings(definition);
        definition.sMPExecutable = "C:\\mp.exe";
        definition.sCNSExecutable = "C:\\cns.exe";
        output(definition, "Error").sOutputFolder = "C:\\out";
        output(definition, "Xml").sOutputFolder = "C:\\out";
        world.makeFolder("C:\\out");
        world.write("C:\\mp.exe", "");
        world.write("C:\\cns.exe", "");
    }

    ValidationServices services() {
        return {.files = world.files(),
                .desktop = desktop,
                .showOptions =
                    [this] {
                        ++optionsShown;
                        whenOptionsShown();
                    },
                .editOutputFolder = [this](Tool grid,
                                           std::size_t row) { edited.emplace_back(grid, row); }};
    }
    bool folders() { return bValidOutputFolders(definition, services()); }

    HostedWorld world;
    ScriptedDesktop desktop;
    BatchDefinition definition;
    std::function<void()> whenOptionsShown = [] {};
    int optionsShown = 0;
    std::vector<std::pair<Tool, std::size_t>> edited;
};

TEST_F(Validation, A_tool_that_exists_is_valid_without_a_word) {
    EXPECT_TRUE(bValidateMP(definition, services()));
    EXPECT_TRUE(bValidateCNS(definition, services()));
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_EQ(optionsShown, 0);
}

TEST_F(Validation, A_missing_mp_can_be_corrected_in_the_options) {
    definition.sMPExecutable = "C:\\no.exe";
    whenOptionsShown = [this] { definition.sMPExecutable = "C:\\mp.exe"; };
    EXPECT_TRUE(bValidateMP(definition, services()));
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The MP executable file \"C:\\no.exe\" does not exist.\r\n"
                                    "Please specify the MP executable location.")));
}

TEST_F(Validation, An_mp_that_is_still_missing_then_is_named_once_more) {
    definition.sMPExecutable = "C:\\no.exe";
    whenOptionsShown = [this] { definition.sMPExecutable = "C:\\nor this.exe"; };
    EXPECT_FALSE(bValidateMP(definition, services()));
    EXPECT_THAT(
        desktop.messages,
        ElementsAre(warning("The MP executable file \"C:\\no.exe\" does not exist.\r\n"
                            "Please specify the MP executable location."),
                    warning("The MP executable file \"C:\\nor this.exe\" does not exist.")));
    EXPECT_EQ(optionsShown, 1);
}

TEST_F(Validation, Cns_is_checked_in_the_same_way_with_its_own_name) {
    definition.sCNSExecutable = "C:\\no.exe";
    EXPECT_FALSE(bValidateCNS(definition, services()));
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The CNS executable file \"C:\\no.exe\" does not exist.\r\n"
                                    "Please specify the CNS executable location."),
                            warning("The CNS executable file \"C:\\no.exe\" does not exist.")));
}

TEST_F(Validation, A_tool_that_is_a_folder_is_missing) {
    definition.sMPExecutable = "C:\\out";
    EXPECT_FALSE(bValidateMP(definition, services()));
    EXPECT_EQ(desktop.messages.back(),
              warning("The MP executable file \"C:\\out\" does not exist."));
}

TEST_F(Validation, An_error_in_a_check_is_reported_under_its_own_name_and_makes_it_fail) {
    definition.sMPExecutable = "C:\\no.exe";
    definition.sCNSExecutable = "C:\\no.exe";
    output(definition, "Error").sOutputFolder = "";
    const ValidationServices broken{
        .files = world.files(),
        .desktop = desktop,
        .showOptions = [] { throw RunTimeError(ErrorNumber::InternalError); },
        .editOutputFolder = [](Tool,
                               std::size_t) { throw RunTimeError(ErrorNumber::InternalError); }};
    EXPECT_FALSE(bValidateMP(definition, broken));
    EXPECT_EQ(desktop.messages.back(),
              errorReport("frmMain", "Private Function bValidateMP() As Boolean",
                          ErrorNumber::InternalError));
    EXPECT_FALSE(bValidateCNS(definition, broken));
    EXPECT_EQ(desktop.messages.back(),
              errorReport("frmMain", "Private Function bValidateCNS() As Boolean",
                          ErrorNumber::InternalError));
    EXPECT_FALSE(bValidOutputFolders(definition, broken));
    EXPECT_EQ(desktop.messages.back(),
              errorReport("frmMain", "Private Function bValidOutputFolders() As Boolean",
                          ErrorNumber::InternalError));
}

TEST_F(Validation, Folders_that_exist_are_valid_without_a_word) {
    EXPECT_TRUE(folders());
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Validation, A_product_without_a_folder_is_named_and_its_row_edited) {
    output(definition, "Xml").sOutputFolder = "  ";
    EXPECT_FALSE(folders());
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("Please specify a folder for the output \"Xml\" file.")));
    EXPECT_THAT(edited, ElementsAre(std::pair(Tool::MP, 6U)));
}

TEST_F(Validation, A_missing_folder_is_named_with_its_product) {
    output(definition, "Error").sOutputFolder = "C:\\missing";
    EXPECT_FALSE(folders());
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The \"C:\\missing\" folder does not exist.\r\n"
                                    "Please specify a valid folder for the output \"Error\" "
                                    "file.")));
    EXPECT_THAT(edited, ElementsAre(std::pair(Tool::MP, 1U)));
}

TEST_F(Validation, Rows_that_are_not_built_are_not_looked_at) {
    output(definition, "Text").sOutputFolder = "C:\\missing";
    EXPECT_TRUE(folders());
}

TEST_F(Validation, Cns_comes_before_mp_and_needs_no_row) {
    definition.iProcessCNS = 1;
    EXPECT_TRUE(folders());
    output(definition, "Leftovers").bBuild = true;
    output(definition, "Error").sOutputFolder = "";
    EXPECT_FALSE(folders());
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("Please specify a folder for the output \"Leftovers\" file.")));
    EXPECT_THAT(edited, ElementsAre(std::pair(Tool::CNS, 2U)));
}

TEST_F(Validation, Mp_needs_at_least_one_row) {
    for (OutputDefinition& output : definition.MPOutputs) {
        output.bBuild = false;
    }
    definition.iProcessCNS = 1;
    EXPECT_FALSE(folders());
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("Under MP, please define the output definition.")));
    EXPECT_THAT(edited, IsEmpty());
}

TEST_F(Validation, Cns_alone_looks_at_its_own_rows_only) {
    definition.iProcessMP = 0;
    definition.iProcessCNS = 1;
    output(definition, "Error").sOutputFolder = "C:\\missing";
    EXPECT_TRUE(folders());
}

TEST_F(Validation, A_tool_runs_only_when_its_box_is_exactly_1) {
    definition.iProcessMP = 2;
    definition.iProcessCNS = 2;
    definition.sMPExecutable = "C:\\no.exe";
    definition.sCNSExecutable = "C:\\no.exe";
    EXPECT_FALSE(folders());
    EXPECT_EQ(validateBatch(definition, services()), BatchFault::Kind::OutputFolder);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Validation, With_neither_tool_folders_are_not_valid_and_nothing_is_said) {
    definition.iProcessMP = 0;
    EXPECT_FALSE(folders());
    EXPECT_THAT(desktop.messages, IsEmpty());
}

class BatchValidation : public Validation {
  protected:
    std::optional<BatchFault::Kind> validate() { return validateBatch(definition, services()); }
};

TEST_F(BatchValidation, A_usable_definition_has_no_fault) {
    definition.iProcessCNS = 1;
    EXPECT_EQ(validate(), std::nullopt);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(BatchValidation, The_first_fault_ends_the_checks_mp_before_cns) {
    definition.iProcessCNS = 1;
    definition.sMPExecutable = "C:\\no mp.exe";
    definition.sCNSExecutable = "C:\\no cns.exe";
    EXPECT_EQ(validate(), BatchFault::Kind::Tool);
    EXPECT_EQ(desktop.messages.back(),
              warning("The MP executable file \"C:\\no mp.exe\" does not exist."));
}

TEST_F(BatchValidation, A_missing_cns_is_a_fault_of_a_tool_too) {
    definition.iProcessCNS = 1;
    definition.sCNSExecutable = "C:\\no cns.exe";
    EXPECT_EQ(validate(), BatchFault::Kind::Tool);
}

TEST_F(BatchValidation, Tools_that_are_not_to_run_may_be_missing) {
    definition.iProcessMP = 0;
    definition.iProcessCNS = 1;
    definition.sMPExecutable = "";
    EXPECT_EQ(validate(), std::nullopt);
}

TEST_F(BatchValidation, A_missing_configuration_file_is_named) {
    definition.bUseConfigFile = 1;
    definition.sConfigFile = "C:\\no.cfg";
    output(definition, "Error").sOutputFolder = "C:\\missing";
    EXPECT_EQ(validate(), BatchFault::Kind::ConfigurationFile);
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The configuration file \"C:\\no.cfg\" does not exist.")));
}

TEST_F(BatchValidation, Output_folders_are_not_looked_at_when_the_configuration_names_them) {
    output(definition, "Error").sOutputFolder = "C:\\missing";
    EXPECT_EQ(validate(), BatchFault::Kind::OutputFolder);
    definition.bCfgNamesOutput = true;
    EXPECT_EQ(validate(), std::nullopt);
}

} // namespace
} // namespace tarnwick
