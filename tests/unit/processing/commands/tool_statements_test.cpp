#include "processing/build_statements.hpp"
#include "processing/commands/tool_statements.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/outputs.hpp"
#include "support/recording_files.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

namespace tarnwick {
namespace {

using testing::IsEmpty;

TEST(ToolOptions, Every_file_type_has_its_option_in_any_case) {
    EXPECT_EQ(sGetOptFromFileType("Config"), "-c");
    EXPECT_EQ(sGetOptFromFileType("ERROR"), "-e");
    EXPECT_EQ(sGetOptFromFileType("Text"), "-t");
    EXPECT_EQ(sGetOptFromFileType("Html"), "-h");
    EXPECT_EQ(sGetOptFromFileType("Faq"), "-f");
    EXPECT_EQ(sGetOptFromFileType("Sgml"), "-s");
    EXPECT_EQ(sGetOptFromFileType("XML"), "-x");
    EXPECT_EQ(sGetOptFromFileType("dif"), "-d");
    EXPECT_EQ(sGetOptFromFileType("Info_File"), "-i");
}

TEST(ToolOptions, Leftovers_share_the_letter_of_errors) {
    EXPECT_EQ(sGetOptFromFileType("Leftovers"), "-e");
}

TEST(ToolOptions, An_unknown_type_is_its_own_option) {
    EXPECT_EQ(sGetOptFromFileType("Foo"), "Foo");
    EXPECT_EQ(sGetOptFromFileType(""), "");
}

std::string languageCode(std::string_view name) {
    BatchDefinition definition;
    definition.sLanguage = name;
    return std::string(sGetLanguage(definition));
}

TEST(Languages, Every_language_has_its_code_in_any_case) {
    EXPECT_EQ(languageCode(""), "en");
    EXPECT_EQ(languageCode("English"), "en");
    EXPECT_EQ(languageCode("sPANISH"), "es");
    EXPECT_EQ(languageCode("Catalan"), "ca");
    EXPECT_EQ(languageCode("INDONESIAN"), "id");
    EXPECT_EQ(languageCode("French"), "fr");
}

TEST(Languages, An_unknown_language_is_its_own_code) {
    EXPECT_EQ(languageCode("German"), "German");
    EXPECT_EQ(languageCode("English "), "English ");
}

class ToolStatements : public testing::Test {
  protected:
    ToolStatements() {
        MyDefaultSettings(definition);
        definition.sMPExecutable = "C:\\Tools\\mp.exe";
        definition.sCNSExecutable = "C:\\Tools\\cns.exe";
        definition.sInputFolder = " D:\\In ";
        definition.sCNSOutputFolder = " D:\\Cns ";
        for (OutputDefinition& output : definition.MPOutputs) {
            output.bBuild = false;
        }
        world.makeDrive('D');
        for (const char* folder : {"D:\\Out", "D:\\Cns", "D:\\In"}) {
            world.makeFolder(folder);
        }
    }

    void build(OutputDefinition& output, std::string_view folder) {
        output.bBuild = true;
        output.sOutputFolder = folder;
    }

    std::string mp(std::string_view folder = "D:\\In", std::string_view file = "rec1.xml") {
        KnownFolders folders(world.files());
        return sBuildMPstatement(desktop, definition, folders, folder, file);
    }
    std::string cns(std::string_view folder = "D:\\In", std::string_view file = "rec1.xml") {
        KnownFolders folders(world.files());
        return sBuildCNSstatement(desktop, definition, folders, folder, file);
    }

    HostedWorld world;
    ScriptedDesktop desktop;
    BatchDefinition definition;
};

TEST_F(ToolStatements, A_plain_mp_line_has_language_and_input) {
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -l en "D:\In\rec1.xml")");
}

TEST_F(ToolStatements, An_mp_line_with_everything_has_its_parts_in_order) {
    definition.bUseConfigFile = 1;
    definition.sConfigFile = "C:\\Cfg\\a.cfg";
    build(output(definition, "Error"), "D:\\Out");
    build(output(definition, "Html"), "D:\\Out\\");
    definition.iFixDoc = 1;
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -c "C:\Cfg\a.cfg" -l en -e "D:\Out\rec1.err")"
                    R"( -h "D:\Out\rec1.html" -fixdoc "D:\In\rec1.xml")");
}

TEST_F(ToolStatements, All_seven_mp_products_stand_in_the_order_of_the_rows) {
    for (OutputDefinition& output : definition.MPOutputs) {
        build(output, "D:\\Out");
    }
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -l en -e "D:\Out\rec1.err" -t "D:\Out\rec1.txt")"
                    R"( -h "D:\Out\rec1.html" -f "D:\Out\rec1_faq.htm" -s "D:\Out\rec1.sgml")"
                    R"( -x "D:\Out\rec1.xml" -d "D:\Out\rec1.dif" "D:\In\rec1.xml")");
}

TEST_F(ToolStatements, A_plain_cns_line_always_has_its_output) {
    EXPECT_EQ(cns(), R"(call "C:\Tools\cns.exe" -l en -o "D:\Cns\rec1.cns" "D:\In\rec1.xml")");
    EXPECT_EQ(cnsOutputName(definition, "rec1.xml"), "rec1.cns");
}

TEST_F(ToolStatements, A_cns_line_with_everything_has_its_parts_in_order) {
    definition.bUseConfigFile = 1;
    definition.sConfigFile = " C:\\a.cfg";
    definition.sLanguage = "French";
    definition.bUseAliases = 1;
    definition.sAliasesFile = "C:\\Cfg\\alias.txt ";
    definition.iFixDoc = 1; // of MP only
    build(output(definition, "Info_file"), "D:\\Out");
    build(output(definition, "Leftovers"), "D:\\Cns");
    EXPECT_EQ(cns(), R"(call "C:\Tools\cns.exe" -c " C:\a.cfg" -l fr -a "C:\Cfg\alias.txt ")"
                     R"( -v -i "D:\Out\rec1.info" -e "D:\Cns\rec1.lft")"
                     R"( -o "D:\Cns\rec1.cns" "D:\In\rec1.xml")");
}

TEST_F(ToolStatements, Files_that_are_not_checked_do_not_appear_although_they_are_named) {
    definition.sConfigFile = "C:\\a.cfg";
    definition.sAliasesFile = "C:\\alias.txt";
    definition.bUseConfigFile = 2; // only exactly 1 is checked
    definition.bUseAliases = 2;
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -l en "D:\In\rec1.xml")");
    EXPECT_EQ(cns(), R"(call "C:\Tools\cns.exe" -l en -o "D:\Cns\rec1.cns" "D:\In\rec1.xml")");
}

TEST_F(ToolStatements, A_language_outside_the_table_is_written_as_it_stands) {
    definition.sLanguage = "German";
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -l German "D:\In\rec1.xml")");
}

TEST_F(ToolStatements, A_row_of_leftovers_gives_e_and_one_of_an_unknown_type_its_name) {
    output(definition, "Error") = {
        .bBuild = true, .sFileType = "Foo", .sExtension = ".foo", .sOutputFolder = "D:\\Out"};
    output(definition, "Text") = {
        .bBuild = true, .sFileType = "LEFTOVERS", .sExtension = ".l", .sOutputFolder = "D:\\Out"};
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -l en Foo "D:\Out\rec1.foo" -e "D:\Out\rec1.l")"
                    R"( "D:\In\rec1.xml")");
}

TEST_F(ToolStatements, Only_cns_is_made_verbose_for_its_info_file) {
    output(definition, "Error") = {
        .bBuild = true, .sFileType = "Info_file", .sExtension = ".i", .sOutputFolder = "D:\\Out"};
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -l en -i "D:\Out\rec1.i" "D:\In\rec1.xml")");
    definition.CNSOutputs.front() = {
        .bBuild = true, .sFileType = "-I", .sExtension = ".i", .sOutputFolder = "D:\\Out"};
    EXPECT_EQ(cns(), R"(call "C:\Tools\cns.exe" -l en -v -I "D:\Out\rec1.i")"
                     R"( -o "D:\Cns\rec1.cns" "D:\In\rec1.xml")");
}

TEST_F(ToolStatements, Folders_join_with_one_backslash_and_the_input_folder_is_trimmed) {
    EXPECT_EQ(mp("  D:\\In\\  "), R"(call "C:\Tools\mp.exe" -l en "D:\In\rec1.xml")");
    definition.sCNSOutputFolder = "D:\\Cns\\ ";
    EXPECT_EQ(cns("D:\\In "),
              R"(call "C:\Tools\cns.exe" -l en -o "D:\Cns\rec1.cns" "D:\In\rec1.xml")");
}

TEST_F(ToolStatements, A_row_whose_folder_is_missing_or_empty_is_left_out_without_a_word) {
    build(output(definition, "Error"), "D:\\NoSuchFolder");
    build(output(definition, "Text"), "");
    build(output(definition, "Xml"), "D:\\Out");
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -l en -x "D:\Out\rec1.xml" "D:\In\rec1.xml")");
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(ToolStatements, With_a_configuration_file_that_names_the_outputs_no_row_is_read) {
    definition.bCfgNamesOutput = true;
    build(output(definition, "Error"), "D:\\Out");
    build(output(definition, "Info_file"), "D:\\Out");
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -l en "rec1.xml")");
    EXPECT_EQ(cns("D:\\elsewhere"),
              R"(call "C:\Tools\cns.exe" -l en -o "D:\In\rec1.xml" "rec1.xml")");
    EXPECT_EQ(cnsOutputName(definition, "rec1.xml"), "rec1.xml");
}

TEST_F(ToolStatements, Then_a_file_without_a_dot_gives_cns_its_base_name) {
    definition.bCfgNamesOutput = true;
    EXPECT_EQ(cnsOutputName(definition, "rec1"), "rec1");
    EXPECT_EQ(cnsOutputName(definition, "rec1.old.met"), "rec1.old.met");
}

TEST_F(ToolStatements, The_cns_extension_is_used_as_typed_unless_it_is_blank) {
    definition.sCNSOutputExtension = " .c ";
    EXPECT_EQ(cnsOutputName(definition, "rec1.xml"), "rec1 .c ");
    definition.sCNSOutputExtension = "  ";
    EXPECT_EQ(cnsOutputName(definition, "rec1.xml"), "rec1");
}

TEST_F(ToolStatements, The_fix_doc_flag_counts_only_when_exactly_1) {
    definition.iFixDoc = 2;
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -l en "D:\In\rec1.xml")");
    definition.iFixDoc = 1;
    EXPECT_EQ(mp(), R"(call "C:\Tools\mp.exe" -l en -fixdoc "D:\In\rec1.xml")");
    EXPECT_EQ(cns(), R"(call "C:\Tools\cns.exe" -l en -o "D:\Cns\rec1.cns" "D:\In\rec1.xml")");
}

TEST_F(ToolStatements, A_command_tells_its_inputs_from_its_outputs) {
    definition.bUseAliases = 1;
    definition.sAliasesFile = "C:\\al.txt";
    build(output(definition, "Leftovers"), "D:\\Out");
    KnownFolders folders(world.files());
    using Kind = ToolArgument::Kind;
    ToolCommand command;
    buildCommand(command, definition, folders, {Tool::CNS, "D:\\In", "r.met"});
    EXPECT_EQ(command, (ToolCommand{.tool = "C:\\Tools\\cns.exe",
                                    .arguments = {{Kind::Word, "-l"},
                                                  {Kind::Word, "en"},
                                                  {Kind::Word, "-a"},
                                                  {Kind::Settings, "C:\\al.txt"},
                                                  {Kind::Word, "-e"},
                                                  {Kind::Output, "D:\\Out\\r.lft"},
                                                  {Kind::Word, "-o"},
                                                  {Kind::Output, "D:\\Cns\\r.cns"},
                                                  {Kind::Input, "D:\\In\\r.met"}}}));
}

// What the system cannot answer does not exist; only the end of all memory is an error.
class BrokenFiles : public ForwardingFiles {
  public:
    using ForwardingFiles::ForwardingFiles;
    [[nodiscard]] bool canListFolder(std::string_view /*folder*/) const override {
        throw std::bad_alloc();
    }
};

TEST_F(ToolStatements, An_error_is_reported_and_the_line_is_as_far_as_it_was_built) {
    BrokenFiles broken(world.files());
    KnownFolders folders(broken);
    build(output(definition, "Error"), "D:\\Out");
    build(output(definition, "Info_file"), "D:\\Out");
    EXPECT_EQ(sBuildMPstatement(desktop, definition, folders, "D:\\In", "r.met"),
              R"(call "C:\Tools\mp.exe" -l en)");
    EXPECT_EQ(sBuildCNSstatement(desktop, definition, folders, "D:\\In", "r.met"),
              R"(call "C:\Tools\cns.exe" -l en)");
    EXPECT_THAT(desktop.messages,
                testing::ElementsAre(
                    errorReport("frmMain", "Private Function sBuildMPstatement() As String",
                                ErrorNumber::OutOfMemory),
                    errorReport("frmMain", "Private Function sBuildCNSstatement() As String",
                                ErrorNumber::OutOfMemory)));
}

TEST_F(ToolStatements, Over_many_records_each_output_folder_is_asked_for_once) {
    for (OutputDefinition& output : definition.MPOutputs) {
        build(output, "D:\\Out");
    }
    build(output(definition, "Info_file"), "D:\\Cns");
    RecordingFiles recording(world.files());
    KnownFolders folders(recording);
    for (int i = 0; i < 100; ++i) {
        const std::string record = "rec" + std::to_string(i) + ".met";
        static_cast<void>(sBuildCNSstatement(desktop, definition, folders, "D:\\In", record));
        static_cast<void>(sBuildMPstatement(desktop, definition, folders, "D:\\Cns", record));
    }
    EXPECT_EQ(recording.count(FileOperation::CanListFolder), 2);
}

TEST_F(ToolStatements, Only_the_checked_tools_are_run_and_cns_before_mp) {
    definition.sInputFolder = "D:\\In";
    definition.sCNSOutputFolder = "D:\\Cns";
    definition.iProcessMP = 2; // only exactly 1 is checked
    EXPECT_THAT(toolSteps(definition, "r.met"), IsEmpty());
    definition.iProcessMP = 1;
    EXPECT_EQ(toolSteps(definition, "r.met"),
              (std::vector<ToolStep>{{Tool::MP, "D:\\In", "r.met"}}));
    definition.iProcessCNS = 1;
    EXPECT_EQ(
        toolSteps(definition, "r.met"),
        (std::vector<ToolStep>{{Tool::CNS, "D:\\In", "r.met"}, {Tool::MP, "D:\\Cns", "r.cns"}}));
    definition.bCfgNamesOutput = true; // CNS then writes into the input folder
    EXPECT_EQ(
        toolSteps(definition, "r.met"),
        (std::vector<ToolStep>{{Tool::CNS, "D:\\In", "r.met"}, {Tool::MP, "D:\\In", "r.met"}}));
    definition.iProcessMP = 0;
    EXPECT_EQ(toolSteps(definition, "r.met"),
              (std::vector<ToolStep>{{Tool::CNS, "D:\\In", "r.met"}}));
}

TEST_F(ToolStatements, Links_are_rewritten_where_mp_runs_and_its_outputs_are_known) {
    EXPECT_FALSE(rewritesLinks(definition));
    definition.bConvertHyperlinks = true;
    EXPECT_TRUE(rewritesLinks(definition));
    definition.bCfgNamesOutput = true;
    EXPECT_FALSE(rewritesLinks(definition));
    definition.bCfgNamesOutput = false;
    definition.iProcessMP = 0;
    EXPECT_FALSE(rewritesLinks(definition));
}

} // namespace
} // namespace tarnwick
