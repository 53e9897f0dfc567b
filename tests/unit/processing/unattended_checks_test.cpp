#include "unit/processing/unattended_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

// Options, overrides, and what keeps a batch from being started.
struct UnattendedChecks : UnattendedWorld {};

TEST_F(UnattendedChecks, The_option_letter_needs_no_capital_and_no_blank) {
    EXPECT_NE(batchOf("-iC:\\batch.ini"), "");
}

TEST_F(UnattendedChecks, A_quoted_ini_name_with_blanks_works) {
    world.write("C:\\My Files\\a.ini", world.read("C:\\batch.ini"));
    EXPECT_NE(batchOf("-I \"C:\\My Files\\a.ini\""), "");
    EXPECT_EQ(definition.sINIFile, "C:\\My Files\\a.ini");
}

TEST_F(UnattendedChecks, An_ini_path_with_blank_and_hyphen_is_cut_there) {
    world.write("C:\\My Files - new\\a.ini", world.read("C:\\batch.ini"));
    expectWarning("-I \"C:\\My Files - new\\a.ini\"",
                  "The INI file \"C:\\My Files\" does not exist.");
}

TEST_F(UnattendedChecks, An_unknown_option_shows_the_help_and_writes_nothing) {
    expectOnlyHelp("-I C:\\batch.ini -x");
}
TEST_F(UnattendedChecks, A_question_mark_shows_the_help_and_writes_nothing) {
    expectOnlyHelp("?");
}
TEST_F(UnattendedChecks, A_missing_ini_option_shows_the_help_and_writes_nothing) {
    expectOnlyHelp("C:\\batch.ini");
}

TEST_F(UnattendedChecks, A_bare_ini_name_is_looked_up_in_the_program_folder) {
    world.write("C:\\app\\night.ini", world.read("C:\\batch.ini"));
    EXPECT_NE(batchOf("-I night.ini"), "");
    EXPECT_EQ(definition.sINIFile, "C:\\app\\night.ini");
}

TEST_F(UnattendedChecks, A_bare_ini_name_is_looked_up_in_the_current_folder_first) {
    world.write("C:\\app\\batch.ini", "");
    EXPECT_NE(batchOf("-I batch.ini"), ""); // the current folder is C:\, where it is usable
}

TEST_F(UnattendedChecks, A_missing_ini_file_is_named_as_it_was_last_looked_for) {
    expectWarning("-I night.ini", "The INI file \"C:\\app\\night.ini\" does not exist.");
    desktop.messages.clear();
    expectWarning("-I D:\\night.ini", "The INI file \"D:\\night.ini\" does not exist.");
    desktop.messages.clear();
    expectWarning("-I", "The INI file \"C:\\app\\\" does not exist.");
}

TEST_F(UnattendedChecks, A_folder_with_blank_and_hyphen_is_cut_there) {
    world.write("D:\\my -extra\\a.met", "");
    world.write("D:\\my\\b.xtra", "");
    storeDefinition("Process CNS=0\r\n");
    // Behind the hyphen an option of its own begins: e, the extensions.
    EXPECT_THAT(batchOf("-I C:\\batch.ini -F \"D:\\my -e*.xtra\""),
                testing::HasSubstr("\"D:\\my\\b.xtra\""));
}

TEST_F(UnattendedChecks, An_override_of_the_extensions_alone_keeps_the_folder) {
    storeDefinition("Process CNS=0\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini -e *.txt"),
                testing::HasSubstr("\"D:\\meta\\in\\c.txt\""));
}

TEST_F(UnattendedChecks, An_override_of_quotation_marks_alone_changes_nothing) {
    storeDefinition("Process CNS=0\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini -F \"\" -e \" \""),
                testing::HasSubstr("\"D:\\meta\\in\\b.met\""));
}

TEST_F(UnattendedChecks, A_file_that_is_no_definition_gets_a_clear_answer) {
    definition.sMPExecutable = "C:\\app\\mp.exe";
    for (const std::string& content : {std::string(), std::string(10'000, '\r')}) {
        world.write("C:\\batch.ini", content);
        desktop.messages.clear();
        expectWarning("-I C:\\batch.ini", "Under MP, please define the output definition.");
    }
    for (const std::string& content :
         {std::string("\0\1\xFF\r\n=\x1A", 7), std::string("Title: Lakes\r\n"),
          "Language=" + std::string(std::size_t{3} * 1024 * 1024, 'x')}) {
        world.write("C:\\batch.ini", content);
        desktop.messages.clear();
        expectNothingDone("-I C:\\batch.ini");
        EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Public Sub ReadINIFile()",
                                                              ErrorNumber::InvalidFileFormat)));
    }
}

TEST_F(UnattendedChecks, An_ini_file_that_is_a_folder_does_not_exist) {
    world.makeFolder("C:\\folder.ini");
    expectWarning("-I C:\\folder.ini", "The INI file \"C:\\folder.ini\" does not exist.");
}

TEST_F(UnattendedChecks, A_tool_that_is_a_folder_is_missing) {
    world.makeFolder("C:\\tool");
    storeDefinition("MP EXECUTABLE=C:\\tool\r\n");
    expectNothingDone("-I C:\\batch.ini");
    EXPECT_EQ(desktop.messages.back(),
              warning("The MP executable file \"C:\\tool\" does not exist."));
}

TEST_F(UnattendedChecks, A_definition_that_runs_no_tool_is_not_set_up_correctly) {
    storeDefinition("Process MP=0\r\nProcess CNS=0\r\n");
    expectWarning("-I C:\\batch.ini", "The INI file \"C:\\batch.ini\" is not setup correctly.");
}

TEST_F(UnattendedChecks, A_missing_tool_opens_the_options_and_ends_when_it_is_still_missing) {
    storeDefinition("MP EXECUTABLE=C:\\no.exe\r\n");
    expectNothingDone("-I C:\\batch.ini");
    EXPECT_EQ(optionsShown, 1);
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The MP executable file \"C:\\no.exe\" does not exist.\r\n"
                                    "Please specify the MP executable location."),
                            warning("The MP executable file \"C:\\no.exe\" does not exist.")));
}

TEST_F(UnattendedChecks, A_configuration_file_that_vanished_since_is_no_longer_used) {
    storeDefinition("Configuration File=D:\\gone.cfg\r\n");
    EXPECT_NE(batchOf("-I C:\\batch.ini"), "");
    EXPECT_EQ(definition.bUseConfigFile, 0);
}

TEST_F(UnattendedChecks, A_configuration_file_that_is_checked_and_missing_ends_it) {
    definition.bUseConfigFile = 1; // as it stood before; the stored definition does not say
    definition.sConfigFile = "D:\\gone.cfg";
    expectWarning("-I C:\\batch.ini", "The configuration file \"D:\\gone.cfg\" does not exist.");
}

TEST_F(UnattendedChecks, An_output_that_cannot_be_built_ends_it) {
    storeDefinition("Process CNS=0\r\nGRID_Error=D:\\out\r\n");
    world.write("C:\\none.ini", "MP EXECUTABLE=C:\\app\\mp.exe\r\nInput Folder=D:\\meta\\in\r\n");
    expectWarning("-I C:\\none.ini", "Under MP, please define the output definition.");
}

TEST_F(UnattendedChecks, Folder_and_extensions_can_be_overridden) {
    storeDefinition("Process CNS=0\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini -F \" D:\\other \" -e \" *.sgm;*.no \""),
                testing::HasSubstr("cd \\other\r\n@echo on\r\n\r\n"
                                   "call \"C:\\app\\mp.exe\" -l en -e \"D:\\out\\y.err\" "
                                   "\"D:\\other\\y.sgm\"\r\nCall "));
    EXPECT_EQ(definition.sInputFolder, "D:\\other");
    EXPECT_EQ(definition.sInputExtensions, "*.sgm;*.no");
}

TEST_F(UnattendedChecks, An_override_of_the_folder_alone_keeps_the_extensions) {
    storeDefinition("Process CNS=0\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini -F D:\\other"),
                testing::HasSubstr("\"D:\\other\\z.met\""));
}

TEST_F(UnattendedChecks, An_override_by_a_missing_folder_is_ignored_without_a_word) {
    EXPECT_THAT(batchOf("-I C:\\batch.ini -F D:\\missing"), StartsWith("@echo off\r\nD:\r\ncd "
                                                                       "\\meta\\in\r\n"));
}

TEST_F(UnattendedChecks, A_folder_without_matching_files_is_named) {
    expectWarning("-I C:\\batch.ini -e *.xyz", "No files found in folder \"D:\\meta\\in\".");
}

TEST_F(UnattendedChecks, A_definition_without_an_input_folder_finds_no_files) {
    world.write("C:\\batch.ini", "MP EXECUTABLE=C:\\app\\mp.exe\r\nGRID_Xml=D:\\out\r\n");
    expectWarning("-I C:\\batch.ini -e *.met", "No files found in folder \"\".");
}

TEST_F(UnattendedChecks, The_first_free_number_names_the_batch) {
    world.write("C:\\temp\\MP_CL.bat", "an earlier run");
    batchOf("-I C:\\batch.ini -n");
    EXPECT_EQ(interpreter.started.front().path, "C:\\temp\\MP_CL1.bat");
    EXPECT_EQ(world.read("C:\\temp\\MP_Notify1.txt"),
              "The Tarnwick script \"C:\\temp\\MP_CL1.bat\" is done running.\r\n");
    EXPECT_EQ(world.read("C:\\temp\\MP_CL.bat"), "an earlier run");
    interpreter.started.clear();
    batchOf("-I C:\\batch.ini");
    EXPECT_EQ(interpreter.started.back().path, "C:\\temp\\MP_CL2.bat");
}

TEST_F(UnattendedChecks, A_hidden_batch_has_its_name_for_itself) {
    world.write("C:\\temp\\MP_CL.bat", "hidden away");
    world.hide("C:\\temp\\MP_CL.bat");
    EXPECT_EQ(run("-I C:\\batch.ini"), UnattendedResult::BatchStarted);
    ASSERT_EQ(interpreter.started.size(), 1U);
    EXPECT_EQ(interpreter.started.front().path, "C:\\temp\\MP_CL1.bat");
    EXPECT_EQ(world.read("C:\\temp\\MP_CL.bat"), "hidden away");
}

TEST_F(UnattendedChecks, With_all_thousand_names_taken_the_user_is_asked_to_clean_up) {
    world.write("C:\\temp\\MP_CL.bat", "");
    for (int n = 1; n < 999; ++n) {
        world.write("C:\\temp\\MP_CL" + std::to_string(n) + ".bat", "");
    }
    EXPECT_EQ(run("-I C:\\batch.ini"), UnattendedResult::BatchStarted);
    EXPECT_EQ(interpreter.started.back().path, "C:\\temp\\MP_CL999.bat");

    EXPECT_EQ(run("-I C:\\batch.ini"), UnattendedResult::NothingStarted);
    EXPECT_EQ(interpreter.started.size(), 1U);
    EXPECT_THAT(desktop.messages,
                ElementsAre(Message{.text = "Need to clean user \"C:\\temp\\\" folder.",
                                    .title = "Tarnwick",
                                    .icon = MessageIcon::None,
                                    .buttons = MessageButtons::Ok}));
    EXPECT_FALSE(world.exists("C:\\temp\\MP_CL1000.bat"));
}

TEST_F(UnattendedChecks, Extensions_that_the_system_can_name_only_by_numbers_are_not_dropped) {
    expectWarning("-I C:\\batch.ini -e \"*.met;*.<U+0436>\"",
                  "The file extensions \"*.met;*.<U+0436>\" hold characters that the system's code "
                  "page does not have.");
}

} // namespace
} // namespace tarnwick
