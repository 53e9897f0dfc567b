#include "definition/ini_file.hpp"
#include "platform/run_time_error.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/outputs.hpp"
#include "support/recording_files.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class INIReader : public testing::Test {
  protected:
    INIReader() {
        MyDefaultSettings(definition);
        definition.sAppFolder = "C:\\app\\";
        definition.sINIFile = "C:\\batch.ini";
        definition.bSettingsChanged = true;
        world.makeDrive('D');
        world.makeFolder("C:\\app");
        world.makeFolder("D:\\records");
        world.makeFolder("D:\\out");
    }

    bool read(std::string_view content) {
        world.write("C:\\batch.ini", content);
        return read();
    }
    bool read() {
        return ReadINIFile(definition, world.files(), desktop, [this] { ++timesRead; });
    }

    HostedWorld world;
    ScriptedDesktop desktop;
    BatchDefinition definition;
    int timesRead = 0;
};

TEST_F(INIReader, Every_key_reaches_its_field) {
    world.write("D:\\al.txt", "");
    world.write("D:\\mp.cfg", "");
    EXPECT_TRUE(read("MP EXECUTABLE= C:\\t\\mp.exe \r\n"
                     "CNS EXECUTABLE= C:\\t\\cns.exe \r\n"
                     "Process MP=0\r\n"
                     "Process CNS=1\r\n"
                     "Command Line Logging=true \r\n"
                     "Command Line Log Filename= a=b.log \r\n"
                     "Input Folder= D:\\records \r\n"
                     "Input File Extension= *.met \r\n"
                     "CNS Output Folder= D:\\nowhere \r\n"
                     "CNS Output File Extension= .c \r\n"
                     "Aliases File= D:\\al.txt \r\n"
                     "Convert HyperLink To Relative Path=TRUE\r\n"
                     "Language=Catalan\r\n"
                     "FIX DOC= 1 \r\n"
                     "Configuration File= D:\\mp.cfg \r\n"
                     "Info Extension=.i\r\nGRID_Info_file= D:\\out \r\n"
                     "Leftovers Extension=.l\r\n"
                     "Error Extension=.e\r\n"
                     "Faq Extension=_f\r\nGRID_FAQ=D:\\out\r\n"
                     "Dif Extension= .d \r\n"));
    BatchDefinition expected = definition; // the folders of the program stay
    expected.sMPExecutable = "C:\\t\\mp.exe";
    expected.sCNSExecutable = "C:\\t\\cns.exe";
    expected.iProcessMP = 0;
    expected.iProcessCNS = 1;
    expected.bCommandLineLogging = true;
    expected.sCommandLineLogFile = "a=b.log";
    expected.sInputFolder = "D:\\records";
    expected.sInputExtensions = " *.met ";
    expected.sCNSOutputFolder = " D:\\nowhere ";
    expected.sCNSOutputExtension = " .c ";
    expected.bUseAliases = 1;
    expected.sAliasesFile = "D:\\al.txt";
    expected.bConvertHyperlinks = true;
    expected.sLanguage = "Catalan";
    expected.iFixDoc = 1;
    expected.bUseConfigFile = 1;
    expected.sConfigFile = "D:\\mp.cfg";
    expected.CNSOutputs = {{{true, "Info_file", ".i", "D:\\out"}, {false, "Leftovers", ".l", ""}}};
    expected.MPOutputs = {{{false, "Error", ".e", ""},
                           {false, "Text", ".txt", ""},
                           {false, "Html", ".html", ""},
                           {true, "Faq", "_f", "D:\\out"},
                           {false, "Sgml", ".sgml", ""},
                           {false, "Xml", ".xml", ""},
                           {false, "Dif", " .d ", ""}}};
    expected.bSettingsChanged = false;
    EXPECT_EQ(definition, expected);
    EXPECT_EQ(timesRead, 1);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(INIReader, A_text_is_read_like_a_file_that_holds_it) {
    constexpr std::string_view content =
        "Input Folder=D:\\records\r\nGRID_Html=D:\\out\r\nLanguage=French";
    BatchDefinition fromText = definition;
    readDefinition(fromText, world.files(), content);
    world.write("C:\\batch.ini", content);
    readDefinition(definition, world.files());
    EXPECT_EQ(fromText, definition);
    EXPECT_EQ(fromText.sInputFolder, "D:\\records");
}

TEST_F(INIReader, A_text_without_any_known_entry_is_refused_and_not_taken) {
    const BatchDefinition before = definition;
    try {
        readDefinition(definition, world.files(), "Title: Lakes");
        FAIL() << "taken";
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.is(ErrorNumber::InvalidFileFormat));
    }
    EXPECT_EQ(definition, before);
}

TEST_F(INIReader, Any_text_but_1_leaves_cns_unchecked_and_any_but_0_checks_mp) {
    definition.iProcessCNS = 1;
    definition.iProcessMP = 0;
    read("Process CNS=yes\r\nProcess MP=\r\n");
    EXPECT_EQ(definition.iProcessCNS, 0);
    EXPECT_EQ(definition.iProcessMP, 1);
}

TEST_F(INIReader, A_fix_doc_of_minus_one_reads_as_0) {
    definition.iFixDoc = 1;
    read("FIX DOC=-1\r\n");
    EXPECT_EQ(definition.iFixDoc, 0);
}

TEST_F(INIReader, A_product_whose_folder_is_missing_comes_back_off_and_is_not_saved_again) {
    read("Xml Extension=.x\r\nGRID_xml=C:\\NoSuchFolder\r\n");
    EXPECT_FALSE(output(definition, "Xml").bBuild);
    EXPECT_EQ(output(definition, "Xml").sOutputFolder, "");
    EXPECT_EQ(output(definition, "Xml").sExtension, ".x");
    const std::string saved = iniFileText(definition, world.files());
    EXPECT_EQ(saved.find("Xml Extension"), std::string::npos);
    EXPECT_EQ(saved.find("GRID_"), std::string::npos);
}

TEST_F(INIReader, A_key_in_other_case_with_blanks_around_it_is_understood) {
    read("  input folder = D:\\records\r\n");
    EXPECT_EQ(definition.sInputFolder, "D:\\records");
}

TEST_F(INIReader, A_missing_input_folder_keeps_the_previous_one) {
    definition.sInputFolder = "D:\\out";
    read("Input Folder=D:\\missing\r\n");
    EXPECT_EQ(definition.sInputFolder, "D:\\out");
}

TEST_F(INIReader, A_blank_behind_the_language_stays) {
    read("Language=English \r\n");
    EXPECT_EQ(definition.sLanguage, "English ");
}

TEST_F(INIReader, A_missing_aliases_or_configuration_file_unchecks_it_and_keeps_the_old_name) {
    definition.bUseAliases = 1;
    definition.sAliasesFile = "D:\\old.txt";
    definition.bUseConfigFile = 1;
    definition.sConfigFile = "D:\\old.cfg";
    read("Aliases File=D:\\no.txt\r\nConfiguration File=D:\\no.cfg\r\n");
    EXPECT_EQ(definition.bUseAliases, 0);
    EXPECT_EQ(definition.sAliasesFile, "D:\\old.txt");
    EXPECT_EQ(definition.bUseConfigFile, 0);
    EXPECT_EQ(definition.sConfigFile, "D:\\old.cfg");
}

TEST_F(INIReader, Fields_without_a_key_keep_their_values_but_all_products_are_reset) {
    definition.bUseAliases = 1;
    definition.sAliasesFile = "D:\\old.txt";
    definition.sInputExtensions = "*.old";
    output(definition, "Error").sExtension = ".mine";
    output(definition, "Error").sOutputFolder = "D:\\out";
    read("a line without the sign\r\nUnknown Key=1\r\n=2\r\n\r\nFIX DOC=0\r\n");
    EXPECT_EQ(definition.bUseAliases, 1);
    EXPECT_EQ(definition.sAliasesFile, "D:\\old.txt");
    EXPECT_EQ(definition.sInputExtensions, "*.old");
    EXPECT_EQ(
        output(definition, "Error"),
        (OutputDefinition{
            .bBuild = false, .sFileType = "Error", .sExtension = ".err", .sOutputFolder = ""}));
    EXPECT_FALSE(output(definition, "Xml").bBuild);
}

TEST_F(INIReader, A_type_name_in_capitals_selects_its_row) {
    read("GRID_HTML=D:\\out\r\n");
    EXPECT_TRUE(output(definition, "Html").bBuild);
}

TEST_F(INIReader, A_configuration_file_that_is_switched_off_no_longer_names_anything) {
    definition.bUseConfigFile = 1;
    definition.bCfgNamesInput = true;
    definition.bCfgNamesOutput = true;
    read("Language=French\r\n");
    EXPECT_TRUE(definition.bCfgNamesOutput);
    read("Configuration File=D:\\no.cfg\r\n");
    EXPECT_FALSE(definition.bCfgNamesInput);
    EXPECT_FALSE(definition.bCfgNamesOutput);
}

TEST_F(INIReader, A_later_line_of_the_same_key_wins) {
    read("Language=French\r\nLANGUAGE=Spanish\r\nError Extension=.a\r\nerror extension=.b\r\n");
    EXPECT_EQ(definition.sLanguage, "Spanish");
    EXPECT_EQ(output(definition, "Error").sExtension, ".b");
}

TEST_F(INIReader, A_product_once_switched_on_stays_on_when_a_later_folder_is_missing) {
    read("GRID_Text=D:\\out\r\nGRID_TEXT=D:\\missing\r\n");
    EXPECT_TRUE(output(definition, "Text").bBuild);
    EXPECT_EQ(output(definition, "Text").sOutputFolder, "D:\\out");
}

TEST_F(INIReader, A_grid_line_of_an_unknown_type_is_ignored) {
    read("GRID_=D:\\out\r\nGRID_Foo=D:\\out\r\nGRID=D:\\out\r\nFIX DOC=0\r\n");
    for (const OutputDefinition& output : definition.MPOutputs) {
        EXPECT_FALSE(output.bBuild);
    }
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(INIReader, Extensions_reach_rows_that_are_off) {
    read("Text Extension=.text\r\nLeftovers Extension=.left\r\n");
    EXPECT_EQ(output(definition, "Text").sExtension, ".text");
    EXPECT_EQ(output(definition, "Leftovers").sExtension, ".left");
}

TEST_F(INIReader, A_missing_file_gives_way_to_the_default_file_in_the_program_folder) {
    world.write("C:\\app\\TARNWICK.ini", "Language=French\r\n");
    EXPECT_TRUE(read());
    EXPECT_EQ(definition.sINIFile, "C:\\app\\TARNWICK.ini");
    EXPECT_EQ(definition.sLanguage, "French");
    EXPECT_EQ(timesRead, 1);
}

TEST_F(INIReader, With_both_files_missing_nothing_is_read_and_that_is_no_error) {
    BatchDefinition expected = definition;
    expected.sINIFile = "C:\\app\\TARNWICK.ini";
    expected.bSettingsChanged = false;
    EXPECT_TRUE(read());
    EXPECT_EQ(definition, expected);
    EXPECT_EQ(timesRead, 0);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(INIReader, Line_feeds_alone_and_a_missing_last_line_end_are_understood) {
    read("Language=French\nInput File Extension=*.a\rFIX DOC=1");
    EXPECT_EQ(definition.sLanguage, "French");
    EXPECT_EQ(definition.sInputExtensions, "*.a");
    EXPECT_EQ(definition.iFixDoc, 1);
}

TEST_F(INIReader, Bytes_above_127_come_back_the_same) {
    world.makeFolder("D:\\donn\xE9"
                     "es \xA0\xFF");
    read("Input Folder=D:\\donn\xE9"
         "es \xA0\xFF\r\nCommand Line Log Filename=\x80\xFE.log\r\n");
    EXPECT_EQ(definition.sInputFolder, "D:\\donn\xE9"
                                       "es \xA0\xFF");
    EXPECT_EQ(definition.sCommandLineLogFile, "\x80\xFE.log");
}

TEST_F(INIReader, An_empty_file_resets_the_products_and_nothing_else) {
    BatchDefinition expected = definition;
    for (OutputDefinition& output : expected.MPOutputs) {
        output.bBuild = false;
    }
    expected.bSettingsChanged = false;
    EXPECT_TRUE(read(""));
    EXPECT_EQ(definition, expected);
}

TEST_F(INIReader, A_file_of_lone_carriage_returns_is_a_file_of_empty_lines) {
    EXPECT_TRUE(read(std::string(100'000, '\r') + "Language=French"));
    EXPECT_EQ(definition.sLanguage, "French");
}

TEST_F(INIReader, An_entry_may_be_as_long_as_the_longest_path) {
    const std::string path(32'767, 'x');
    EXPECT_TRUE(read("Command Line Log Filename=" + path));
    EXPECT_EQ(definition.sCommandLineLogFile, path);
}

TEST_F(INIReader, A_file_of_100_megabytes_of_lines_is_read_to_its_end) {
    std::string huge;
    while (huge.size() < std::size_t{100} * 1024 * 1024) {
        huge += "GRID_Xml=C:\\NoSuchFolder\r\nInput Folder=C:\\NoSuchFolder\r\nwhat is this\r\n";
    }
    huge += "Language=French\r\n";
    EXPECT_TRUE(read(huge));
    EXPECT_EQ(definition.sLanguage, "French");
}

TEST_F(INIReader, One_folder_named_in_many_lines_is_asked_for_once) {
    std::string lines;
    for (int i = 0; i < 1000; ++i) {
        lines += "GRID_Xml=D:\\out\r\n";
    }
    world.write("C:\\batch.ini", lines);
    RecordingFiles recording(world.files());
    ReadINIFile(definition, recording, desktop, [] {});
    EXPECT_EQ(recording.count(FileOperation::CanListFolder), 1);
}

TEST_F(INIReader, A_folder_of_the_files_name_gives_way_to_the_default_file) {
    world.makeFolder("C:\\batch.ini");
    EXPECT_TRUE(read());
    EXPECT_EQ(definition.sINIFile, "C:\\app\\TARNWICK.ini");
}

TEST_F(INIReader, A_locked_file_is_reported_and_nothing_changes) {
    world.write("C:\\batch.ini", "Language=French\r\n");
    output(definition, "Text") = {
        .bBuild = true, .sFileType = "Text", .sExtension = ".t", .sOutputFolder = "D:\\out"};
    const BatchDefinition before = definition;
    FaultyFiles faulty(world.files());
    faulty.failAt(FileOperation::OpenForReading, 1, RunTimeError(ErrorNumber::PermissionDenied));
    EXPECT_FALSE(ReadINIFile(definition, faulty, desktop, [this] { ++timesRead; }));
    EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Public Sub ReadINIFile()",
                                                          ErrorNumber::PermissionDenied)));
    EXPECT_EQ(definition, before);
    EXPECT_EQ(timesRead, 0);
}

TEST_F(INIReader, An_error_in_mid_file_is_reported_and_what_was_read_stays) {
    world.write("C:\\batch.ini", "Language=French\r\n" + std::string(std::size_t{200} * 1024, 'x') +
                                     "\r\nFIX DOC=1");
    FaultyFiles faulty(world.files());
    faulty.failAt(FileOperation::Read, 2, RunTimeError(ErrorNumber::DeviceIO));
    EXPECT_FALSE(ReadINIFile(definition, faulty, desktop, [this] { ++timesRead; }));
    EXPECT_EQ(definition.sLanguage, "French");
    EXPECT_EQ(definition.iFixDoc, 0);
    EXPECT_TRUE(definition.bSettingsChanged);
    EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Public Sub ReadINIFile()",
                                                          ErrorNumber::DeviceIO)));
}

TEST_F(INIReader, An_error_while_the_window_is_brought_up_to_date_is_reported_here) {
    world.write("C:\\batch.ini", "");
    EXPECT_FALSE(ReadINIFile(definition, world.files(), desktop,
                             [] { throw RunTimeError(ErrorNumber::PathNotFound); }));
    EXPECT_TRUE(definition.bSettingsChanged);
    EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Public Sub ReadINIFile()",
                                                          ErrorNumber::PathNotFound)));
}

} // namespace
} // namespace tarnwick
