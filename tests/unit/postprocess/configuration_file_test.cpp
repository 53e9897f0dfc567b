#include "platform/run_time_error.hpp"
#include "postprocess/configuration_file.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr ConfigurationEntries nothing{};
constexpr ConfigurationEntries input{.namesInput = true, .namesOutput = false};
constexpr ConfigurationEntries output{.namesInput = false, .namesOutput = true};
constexpr ConfigurationEntries both{.namesInput = true, .namesOutput = true};

TEST(ConfigurationLine, The_keyword_alone_on_its_line_counts_in_any_case_with_blanks_around_it) {
    EXPECT_EQ(inspectConfigurationLine("  OutPut "), output);
    EXPECT_EQ(inspectConfigurationLine("INPUT"), input);
}

TEST(ConfigurationLine, A_longer_word_does_not_count) {
    EXPECT_EQ(inspectConfigurationLine("output_dir"), nothing);
    EXPECT_EQ(inspectConfigurationLine("output D:\\out"), nothing);
    EXPECT_EQ(inspectConfigurationLine("\tinput"), nothing);
    EXPECT_EQ(inspectConfigurationLine(""), nothing);
}

TEST(ConfigurationLine, Between_bare_line_feeds_the_keywords_count_in_lower_case_only) {
    EXPECT_EQ(inspectConfigurationLine("a\ninput\nb\noutput\nc"), both);
    EXPECT_EQ(inspectConfigurationLine("a\nINPUT\nb\nOutput\nc"), nothing);
}

TEST(ConfigurationLine, As_the_very_first_of_such_lines_input_is_seen_and_output_is_not) {
    EXPECT_EQ(inspectConfigurationLine("input\nb"), input);
    EXPECT_EQ(inspectConfigurationLine("output\nb"), nothing);
}

TEST(ConfigurationLine, Before_a_line_feed_the_end_of_a_longer_word_counts_as_input_only) {
    EXPECT_EQ(inspectConfigurationLine("my input\nb"), input);
    EXPECT_EQ(inspectConfigurationLine("my output\nb"), nothing);
}

TEST(ConfigurationLine, As_the_last_of_such_lines_neither_is_seen_without_a_line_feed) {
    EXPECT_EQ(inspectConfigurationLine("a\ninput"), nothing);
    EXPECT_EQ(inspectConfigurationLine("a\noutput"), nothing);
}

class ConfigurationFile : public testing::Test {
  protected:
    ConfigurationFile() {
        MyDefaultSettings(definition);
        definition.sConfigFile = "C:\\mp.cfg";
        definition.sCNSOutputFolder = "C:\\cns";
    }

    void inspect(std::string_view content) {
        world.write("C:\\mp.cfg", content);
        EXPECT_TRUE(GetCFGValues(definition, world.files(), desktop, [this] { ++timesInspected; }));
    }

    HostedWorld world;
    ScriptedDesktop desktop;
    BatchDefinition definition;
    int timesInspected = 0;
};

TEST_F(ConfigurationFile, Without_the_keywords_flags_and_outputs_stay_as_they_are) {
    const BatchDefinition before = definition;
    inspect("language en\r\noutput_dir D:\\x\r\n");
    EXPECT_EQ(definition, before);
    EXPECT_EQ(timesInspected, 1);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(ConfigurationFile, A_line_output_switches_off_and_empties_all_outputs) {
    inspect("input\r  folder D:\\in\r\n Output \r\n  html D:\\out\r\n");
    EXPECT_TRUE(definition.bCfgNamesInput);
    EXPECT_TRUE(definition.bCfgNamesOutput);
    for (const OutputDefinition& row : definition.MPOutputs) {
        EXPECT_EQ(row, (OutputDefinition{.bBuild = false,
                                         .sFileType = row.sFileType,
                                         .sExtension = "",
                                         .sOutputFolder = ""}));
        EXPECT_NE(row.sFileType, "");
    }
    for (const OutputDefinition& row : definition.CNSOutputs) {
        EXPECT_FALSE(row.bBuild);
        EXPECT_EQ(row.sExtension + row.sOutputFolder, "");
    }
}

TEST_F(ConfigurationFile, With_cns_off_its_output_folder_and_extension_stay) {
    inspect("output\r\n");
    EXPECT_EQ(definition.sCNSOutputFolder, "C:\\cns");
    EXPECT_EQ(definition.sCNSOutputExtension, ".cns");
}

TEST_F(ConfigurationFile, With_cns_on_its_output_folder_and_extension_are_emptied) {
    definition.iProcessCNS = checked;
    inspect("output\r\n");
    EXPECT_EQ(definition.sCNSOutputFolder, "");
    EXPECT_EQ(definition.sCNSOutputExtension, "");
}

TEST_F(ConfigurationFile, Outputs_once_switched_off_are_not_switched_on_by_the_next_file) {
    inspect("output\r\n");
    const MPOutputDefinitions off = definition.MPOutputs;
    inspect("nothing\r\n");
    EXPECT_FALSE(definition.bCfgNamesOutput);
    EXPECT_EQ(definition.MPOutputs, off);
}

TEST_F(ConfigurationFile, A_flag_once_set_stays_for_the_rest_of_the_file) {
    inspect("output\r\ninput\r\nlanguage en\r\n");
    EXPECT_TRUE(definition.bCfgNamesInput);
    EXPECT_TRUE(definition.bCfgNamesOutput);
}

TEST_F(ConfigurationFile, A_file_with_bare_line_feeds_is_one_line) {
    inspect("language en\noutput\nhtml D:\\out\n");
    EXPECT_TRUE(definition.bCfgNamesOutput);
    inspect("output\nhtml D:\\out\n");
    EXPECT_FALSE(definition.bCfgNamesOutput);
}

TEST_F(ConfigurationFile, A_missing_file_is_reported_and_clears_the_flags) {
    definition.bCfgNamesInput = true;
    definition.bCfgNamesOutput = true;
    EXPECT_FALSE(GetCFGValues(definition, world.files(), desktop, [this] { ++timesInspected; }));
    EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Private Sub GetCFGValues()",
                                                          ErrorNumber::FileNotFound, ENOENT)));
    EXPECT_FALSE(definition.bCfgNamesInput);
    EXPECT_FALSE(definition.bCfgNamesOutput);
    EXPECT_EQ(timesInspected, 0);
}

TEST_F(ConfigurationFile, An_error_behind_output_leaves_its_flag_and_every_row_as_it_was) {
    definition.iProcessCNS = checked;
    const std::string filler(std::size_t{300} * 1024, 'x');
    world.write("C:\\mp.cfg", "output\r\n" + filler + "\r\n");
    FaultyFiles faulty(world.files());
    faulty.failAt(FileOperation::Read, 2, RunTimeError(ErrorNumber::DeviceIO));
    const BatchDefinition before = definition;
    EXPECT_FALSE(GetCFGValues(definition, faulty, desktop, [this] { ++timesInspected; }));
    EXPECT_TRUE(definition.bCfgNamesOutput);
    EXPECT_EQ(definition.MPOutputs, before.MPOutputs);
    EXPECT_EQ(definition.CNSOutputs, before.CNSOutputs);
    EXPECT_EQ(definition.sCNSOutputFolder, "C:\\cns");
    EXPECT_EQ(timesInspected, 0);
}

TEST_F(ConfigurationFile, An_error_while_reading_leaves_the_flags_as_far_as_they_were_set) {
    const std::string filler(std::size_t{300} * 1024, 'x');
    world.write("C:\\mp.cfg", "input\r\n" + filler + "\r\noutput\r\n");
    FaultyFiles faulty(world.files());
    faulty.failAt(FileOperation::Read, 2, RunTimeError(ErrorNumber::DeviceIO));
    const MPOutputDefinitions before = definition.MPOutputs;
    EXPECT_FALSE(GetCFGValues(definition, faulty, desktop, [this] { ++timesInspected; }));
    EXPECT_TRUE(definition.bCfgNamesInput);
    EXPECT_FALSE(definition.bCfgNamesOutput);
    EXPECT_EQ(definition.MPOutputs, before);
    EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Private Sub GetCFGValues()",
                                                          ErrorNumber::DeviceIO)));
}

} // namespace
} // namespace tarnwick
