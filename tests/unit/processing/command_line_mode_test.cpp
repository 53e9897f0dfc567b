#include "processing/command_line_mode.hpp"
#include "support/fake_clock.hpp"
#include "support/fake_command_interpreter.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/recording_files.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// A machine with the tools, two records and a stored definition that runs both tools over them.
class CommandLineMode : public testing::Test {
  protected:
    CommandLineMode() {
        MyDefaultSettings(definition);
        definition.sAppFolder = "C:\\app\\";
        definition.sTempFolder = "C:\\temp\\";
        definition.sINIFile = "C:\\app\\TARNWICK.ini";
        world.makeDrive('D');
        for (const char* folder : {"C:\\temp", "D:\\meta\\in", "D:\\cns", "D:\\out", "D:\\other"}) {
            world.makeFolder(folder);
        }
        for (const char* file :
             {"C:\\app\\mp.exe", "C:\\app\\cns.exe", "D:\\meta\\in\\b.met", "D:\\meta\\in\\a.met",
              "D:\\meta\\in\\c.txt", "D:\\other\\z.met", "D:\\other\\y.sgm"}) {
            world.write(file, "");
        }
        storeDefinition("");
    }

    void storeDefinition(std::string_view changes) {
        world.write("C:\\batch.ini", "MP EXECUTABLE=C:\\app\\mp.exe\r\n"
                                     "CNS EXECUTABLE=C:\\app\\cns.exe\r\n"
                                     "Process MP=1\r\nProcess CNS=1\r\n"
                                     "Input Folder=D:\\meta\\in\r\nInput File Extension=*.met\r\n"
                                     "CNS Output Folder=D:\\cns\r\nGRID_Error=D:\\out\r\n" +
                                         std::string(changes));
    }

    CommandLineResult run(std::string_view text) {
        return RunCommandLine(definition, records,
                              {.files = *files,
                               .desktop = desktop,
                               .interpreter = interpreter,
                               .events = events,
                               .showHelp = [this] { ++helpShown; },
                               .showOptions = [this] { ++optionsShown; }},
                              text);
    }

    // Nothing was started, and nothing was written into the temporary folder.
    void expectNothingDone(std::string_view text) {
        EXPECT_EQ(run(text), CommandLineResult::NothingStarted);
        EXPECT_THAT(interpreter.started, IsEmpty());
        EXPECT_THAT(world.files().listFiles("C:\\temp", ""), IsEmpty());
    }
    void expectOnlyHelp(std::string_view text) {
        expectNothingDone(text);
        EXPECT_EQ(helpShown, 1);
        EXPECT_THAT(desktop.messages, IsEmpty());
    }
    void expectWarning(std::string_view text, std::string_view warningText) {
        expectNothingDone(text);
        EXPECT_THAT(desktop.messages, ElementsAre(warning(warningText)));
        EXPECT_EQ(helpShown, 0);
    }
    std::string batchOf(std::string_view text) {
        EXPECT_EQ(run(text), CommandLineResult::BatchStarted);
        EXPECT_THAT(desktop.messages, IsEmpty());
        EXPECT_EQ(interpreter.started.size(), 1U);
        return interpreter.started.empty() ? "" : interpreter.started.front().content;
    }

    HostedWorld world;
    Files* files = &world.files();
    ScriptedDesktop desktop;
    FakeCommandInterpreter interpreter{world.files()};
    FakeClock clock;
    FakePendingEvents events{clock};
    BatchDefinition definition;
    RecordSelection records;
    int helpShown = 0;
    int optionsShown = 0;
};

TEST_F(CommandLineMode, A_stored_definition_becomes_a_batch_to_the_byte) {
    EXPECT_EQ(batchOf("-I C:\\batch.ini"),
              "@echo off\r\n"
              "D:\r\n"
              "cd \\meta\\in\r\n"
              "@echo on\r\n"
              "\r\n"
              "call \"C:\\app\\cns.exe\" -l en -o \"D:\\cns\\a.cns\" \"D:\\meta\\in\\a.met\"\r\n"
              "call \"C:\\app\\mp.exe\" -l en -e \"D:\\out\\a.err\" \"D:\\cns\\a.cns\"\r\n"
              "call \"C:\\app\\cns.exe\" -l en -o \"D:\\cns\\b.cns\" \"D:\\meta\\in\\b.met\"\r\n"
              "call \"C:\\app\\mp.exe\" -l en -e \"D:\\out\\b.err\" \"D:\\cns\\b.cns\"\r\n"
              "Call \"C:\\temp\\MPDELETE.bat\" \"C:\\temp\\MP_CL.bat\"\r\n");
    EXPECT_EQ(interpreter.started.front().path, "C:\\temp\\MP_CL.bat");
    EXPECT_EQ(world.read("C:\\temp\\MPDELETE.bat"), "del %1\r\n");
    EXPECT_THAT(world.files().listFiles("C:\\temp", ""), ElementsAre("MPDELETE.bat", "MP_CL.bat"));
}

TEST_F(CommandLineMode, Waiting_events_run_before_and_after_the_start) {
    std::vector<std::size_t> startedSoFar;
    events.handler = [&] { startedSoFar.push_back(interpreter.started.size()); };
    run("-I C:\\batch.ini");
    EXPECT_THAT(startedSoFar, ElementsAre(0U, 1U));
}

TEST_F(CommandLineMode, What_an_earlier_run_left_is_replaced) {
    world.write("C:\\temp\\MPDELETE.bat", "del %1\r\ndel %2\r\n");
    world.write("C:\\temp\\MP_Notify.txt", std::string(500, 'x'));
    run("-I C:\\batch.ini -n");
    EXPECT_EQ(world.read("C:\\temp\\MPDELETE.bat"), "del %1\r\n");
    EXPECT_EQ(world.read("C:\\temp\\MP_Notify.txt"),
              "The Tarnwick script \"C:\\temp\\MP_CL.bat\" is done running.\r\n");
}

TEST_F(CommandLineMode, A_delete_batch_that_is_right_is_not_touched_while_others_may_read_it) {
    RecordingFiles recording(world.files());
    files = &recording;
    run("-I C:\\batch.ini");
    records = {}; // another run of the program
    run("-I C:\\batch.ini");
    EXPECT_EQ(recording.count(FileOperation::Create, "C:\\temp\\MPDELETE.bat"), 1);
}

// Another run creates its batch behind this one's look and before this one's creation.
class OvertakenFiles : public ForwardingFiles {
  public:
    explicit OvertakenFiles(HostedWorld& world) : ForwardingFiles(world.files()), world_(world) {}
    std::unique_ptr<OutputFile> createNew(std::string_view path) override {
        if (path == "C:\\temp\\MP_CL.bat") {
            world_.write(path, "the other run's");
        }
        return ForwardingFiles::createNew(path);
    }

  private:
    HostedWorld& world_;
};

TEST_F(CommandLineMode, Of_two_runs_at_the_same_moment_each_gets_a_batch_of_its_own) {
    OvertakenFiles overtaken(world);
    files = &overtaken;
    EXPECT_EQ(run("-I C:\\batch.ini"), CommandLineResult::BatchStarted);
    EXPECT_EQ(interpreter.started.front().path, "C:\\temp\\MP_CL1.bat");
    EXPECT_EQ(world.read("C:\\temp\\MP_CL.bat"), "the other run's");
}

TEST_F(CommandLineMode, A_folder_is_asked_for_once_for_a_batch_not_once_per_record) {
    RecordingFiles recording(world.files());
    files = &recording;
    run("-I C:\\batch.ini");
    const int withTwo = recording.count(FileOperation::CanListFolder);
    recording.forget();
    for (int i = 0; i < 100; ++i) {
        world.write("D:\\meta\\in\\r" + std::to_string(i) + ".met", "");
    }
    records = {}; // another run of the program
    run("-I C:\\batch.ini");
    EXPECT_EQ(records.selected().size(), 102U);
    EXPECT_EQ(recording.count(FileOperation::CanListFolder), withTwo);
}

TEST_F(CommandLineMode, With_a_notification_the_batch_shows_and_deletes_it_before_itself) {
    storeDefinition("Process CNS=0\r\nInput File Extension=a.*\r\n");
    EXPECT_EQ(batchOf("-I C:\\batch.ini -n"),
              "@echo off\r\n"
              "D:\r\n"
              "cd \\meta\\in\r\n"
              "@echo on\r\n"
              "\r\n"
              "call \"C:\\app\\mp.exe\" -l en -e \"D:\\out\\a.err\" \"D:\\meta\\in\\a.met\"\r\n"
              "Call \"notepad.exe\" \"C:\\temp\\MP_Notify.txt\"\r\n"
              "Call \"C:\\temp\\MPDELETE.bat\" \"C:\\temp\\MP_Notify.txt\"\r\n"
              "Call \"C:\\temp\\MPDELETE.bat\" \"C:\\temp\\MP_CL.bat\"\r\n");
    EXPECT_EQ(world.read("C:\\temp\\MP_Notify.txt"),
              "The Tarnwick script \"C:\\temp\\MP_CL.bat\" is done running.\r\n");
}

TEST_F(CommandLineMode, Cns_alone_writes_no_mp_line) {
    storeDefinition("Process MP=0\r\nInput File Extension=a.*\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini"),
                testing::EndsWith("\r\n\r\ncall \"C:\\app\\cns.exe\" -l en -o \"D:\\cns\\a.cns\" "
                                  "\"D:\\meta\\in\\a.met\"\r\n"
                                  "Call \"C:\\temp\\MPDELETE.bat\" \"C:\\temp\\MP_CL.bat\"\r\n"));
}

TEST_F(CommandLineMode, A_network_folder_is_not_entered) {
    world.makeShare("\\\\server\\share");
    world.write("\\\\server\\share\\n.met", "");
    storeDefinition("Process CNS=0\r\nInput Folder=\\\\server\\share\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini"), StartsWith("\r\ncall \"C:\\app\\mp.exe\""));
}

TEST_F(CommandLineMode, A_configuration_file_that_names_the_outputs_gives_bare_names) {
    world.write("D:\\mp.cfg", "output\r\n");
    storeDefinition("Configuration File=D:\\mp.cfg\r\nInput File Extension=a.*\r\n");
    EXPECT_EQ(batchOf("-I C:\\batch.ini"),
              "@echo off\r\n"
              "D:\r\n"
              "cd \\meta\\in\r\n"
              "@echo on\r\n"
              "\r\n"
              "call \"C:\\app\\cns.exe\" -c \"D:\\mp.cfg\" -l en -o \"D:\\meta\\in\\a.met\" "
              "\"a.met\"\r\n"
              "call \"C:\\app\\mp.exe\" -c \"D:\\mp.cfg\" -l en \"a.met\"\r\n"
              "Call \"C:\\temp\\MPDELETE.bat\" \"C:\\temp\\MP_CL.bat\"\r\n");
}

TEST_F(CommandLineMode, An_accent_reaches_the_tool_through_the_interpreters_code_page) {
    world.write("D:\\other\\caf\xE9 1.met", "");
    storeDefinition("Process CNS=0\r\nInput Folder=D:\\other\r\nInput File Extension=caf*\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini"),
                testing::HasSubstr("-e \"D:\\out\\caf\x82 1.err\" \"D:\\other\\caf\x82 1.met\""));
}

TEST_F(CommandLineMode, The_option_letter_needs_no_capital_and_no_blank) {
    EXPECT_NE(batchOf("-iC:\\batch.ini"), "");
}

TEST_F(CommandLineMode, A_quoted_ini_name_with_blanks_works) {
    world.write("C:\\My Files\\a.ini", world.read("C:\\batch.ini"));
    EXPECT_NE(batchOf("-I \"C:\\My Files\\a.ini\""), "");
    EXPECT_EQ(definition.sINIFile, "C:\\My Files\\a.ini");
}

TEST_F(CommandLineMode, An_ini_path_with_blank_and_hyphen_is_cut_there) {
    world.write("C:\\My Files - new\\a.ini", world.read("C:\\batch.ini"));
    expectWarning("-I \"C:\\My Files - new\\a.ini\"",
                  "The INI file \"C:\\My Files\" does not exist.");
}

TEST_F(CommandLineMode, An_unknown_option_shows_the_help_and_writes_nothing) {
    expectOnlyHelp("-I C:\\batch.ini -x");
}
TEST_F(CommandLineMode, A_question_mark_shows_the_help_and_writes_nothing) {
    expectOnlyHelp("?");
}
TEST_F(CommandLineMode, A_missing_ini_option_shows_the_help_and_writes_nothing) {
    expectOnlyHelp("C:\\batch.ini");
}

TEST_F(CommandLineMode, A_bare_ini_name_is_looked_up_in_the_program_folder) {
    world.write("C:\\app\\night.ini", world.read("C:\\batch.ini"));
    EXPECT_NE(batchOf("-I night.ini"), "");
    EXPECT_EQ(definition.sINIFile, "C:\\app\\night.ini");
}

TEST_F(CommandLineMode, A_bare_ini_name_is_looked_up_in_the_current_folder_first) {
    world.write("C:\\app\\batch.ini", "");
    EXPECT_NE(batchOf("-I batch.ini"), ""); // the current folder is C:\, where it is usable
}

TEST_F(CommandLineMode, A_missing_ini_file_is_named_as_it_was_last_looked_for) {
    expectWarning("-I night.ini", "The INI file \"C:\\app\\night.ini\" does not exist.");
    desktop.messages.clear();
    expectWarning("-I D:\\night.ini", "The INI file \"D:\\night.ini\" does not exist.");
    desktop.messages.clear();
    expectWarning("-I", "The INI file \"C:\\app\\\" does not exist.");
}

TEST_F(CommandLineMode, A_folder_with_blank_and_hyphen_is_cut_there) {
    world.write("D:\\my -extra\\a.met", "");
    world.write("D:\\my\\b.xtra", "");
    storeDefinition("Process CNS=0\r\n");
    // Behind the hyphen an option of its own begins: e, the extensions.
    EXPECT_THAT(batchOf("-I C:\\batch.ini -F \"D:\\my -e*.xtra\""),
                testing::HasSubstr("\"D:\\my\\b.xtra\""));
}

TEST_F(CommandLineMode, An_override_of_the_extensions_alone_keeps_the_folder) {
    storeDefinition("Process CNS=0\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini -e *.txt"),
                testing::HasSubstr("\"D:\\meta\\in\\c.txt\""));
}

TEST_F(CommandLineMode, An_override_of_quotation_marks_alone_changes_nothing) {
    storeDefinition("Process CNS=0\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini -F \"\" -e \" \""),
                testing::HasSubstr("\"D:\\meta\\in\\b.met\""));
}

TEST_F(CommandLineMode, A_file_that_is_no_definition_gets_a_clear_answer) {
    definition.sMPExecutable = "C:\\app\\mp.exe";
    for (const std::string& content :
         {std::string(), std::string("\0\1\xFF\r\n=\x1A", 7), std::string(10'000, '\r'),
          "Language=" + std::string(std::size_t{3} * 1024 * 1024, 'x')}) {
        world.write("C:\\batch.ini", content);
        desktop.messages.clear();
        expectWarning("-I C:\\batch.ini", "Under MP, please define the output definition.");
    }
}

TEST_F(CommandLineMode, An_ini_file_that_is_a_folder_does_not_exist) {
    world.makeFolder("C:\\folder.ini");
    expectWarning("-I C:\\folder.ini", "The INI file \"C:\\folder.ini\" does not exist.");
}

TEST_F(CommandLineMode, A_tool_that_is_a_folder_is_missing) {
    world.makeFolder("C:\\tool");
    storeDefinition("MP EXECUTABLE=C:\\tool\r\n");
    expectNothingDone("-I C:\\batch.ini");
    EXPECT_EQ(desktop.messages.back(),
              warning("The MP executable file \"C:\\tool\" does not exist."));
}

TEST_F(CommandLineMode, A_definition_that_runs_no_tool_is_not_set_up_correctly) {
    storeDefinition("Process MP=0\r\nProcess CNS=0\r\n");
    expectWarning("-I C:\\batch.ini", "The INI file \"C:\\batch.ini\" is not setup correctly.");
}

TEST_F(CommandLineMode, A_missing_tool_opens_the_options_and_ends_when_it_is_still_missing) {
    storeDefinition("MP EXECUTABLE=C:\\no.exe\r\n");
    expectNothingDone("-I C:\\batch.ini");
    EXPECT_EQ(optionsShown, 1);
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The MP executable file \"C:\\no.exe\" does not exist.\r\n"
                                    "Please specify the MP executable location."),
                            warning("The MP executable file \"C:\\no.exe\" does not exist.")));
}

TEST_F(CommandLineMode, A_configuration_file_that_vanished_since_is_no_longer_used) {
    storeDefinition("Configuration File=D:\\gone.cfg\r\n");
    EXPECT_NE(batchOf("-I C:\\batch.ini"), "");
    EXPECT_EQ(definition.bUseConfigFile, 0);
}

TEST_F(CommandLineMode, A_configuration_file_that_is_checked_and_missing_ends_it) {
    definition.bUseConfigFile = 1; // as it stood before; the stored definition does not say
    definition.sConfigFile = "D:\\gone.cfg";
    expectWarning("-I C:\\batch.ini", "The configuration file \"D:\\gone.cfg\" does not exist.");
}

TEST_F(CommandLineMode, An_output_that_cannot_be_built_ends_it) {
    storeDefinition("Process CNS=0\r\nGRID_Error=D:\\out\r\n");
    world.write("C:\\none.ini", "MP EXECUTABLE=C:\\app\\mp.exe\r\nInput Folder=D:\\meta\\in\r\n");
    expectWarning("-I C:\\none.ini", "Under MP, please define the output definition.");
}

TEST_F(CommandLineMode, Folder_and_extensions_can_be_overridden) {
    storeDefinition("Process CNS=0\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini -F \" D:\\other \" -e \"*.sgm;*.no\""),
                testing::HasSubstr("cd \\other\r\n@echo on\r\n\r\n"
                                   "call \"C:\\app\\mp.exe\" -l en -e \"D:\\out\\y.err\" "
                                   "\"D:\\other\\y.sgm\"\r\nCall "));
    EXPECT_EQ(definition.sInputFolder, "D:\\other");
    EXPECT_EQ(definition.sInputExtensions, "*.sgm;*.no");
}

TEST_F(CommandLineMode, An_override_of_the_folder_alone_keeps_the_extensions) {
    storeDefinition("Process CNS=0\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini -F D:\\other"),
                testing::HasSubstr("\"D:\\other\\z.met\""));
}

TEST_F(CommandLineMode, An_override_by_a_missing_folder_is_ignored_without_a_word) {
    EXPECT_THAT(batchOf("-I C:\\batch.ini -F D:\\missing"), StartsWith("@echo off\r\nD:\r\ncd "
                                                                       "\\meta\\in\r\n"));
}

TEST_F(CommandLineMode, A_folder_without_matching_files_is_named) {
    expectWarning("-I C:\\batch.ini -e *.xyz", "No files found in folder \"D:\\meta\\in\".");
}

TEST_F(CommandLineMode, A_definition_without_an_input_folder_finds_no_files) {
    world.write("C:\\batch.ini", "MP EXECUTABLE=C:\\app\\mp.exe\r\nGRID_Xml=D:\\out\r\n");
    expectWarning("-I C:\\batch.ini -e *.met", "No files found in folder \"\".");
}

TEST_F(CommandLineMode, When_every_file_is_selected_already_none_is_found) {
    records.load({"a.met", "b.met"});
    records.selectAll();
    expectWarning("-I C:\\batch.ini", "No files found in folder \"D:\\meta\\in\".");
}

TEST_F(CommandLineMode, The_first_free_number_names_the_batch) {
    world.write("C:\\temp\\MP_CL.bat", "an earlier run");
    batchOf("-I C:\\batch.ini -n");
    EXPECT_EQ(interpreter.started.front().path, "C:\\temp\\MP_CL1.bat");
    EXPECT_EQ(world.read("C:\\temp\\MP_Notify1.txt"),
              "The Tarnwick script \"C:\\temp\\MP_CL1.bat\" is done running.\r\n");
    EXPECT_EQ(world.read("C:\\temp\\MP_CL.bat"), "an earlier run");
    records = {}; // another run of the program
    interpreter.started.clear();
    batchOf("-I C:\\batch.ini");
    EXPECT_EQ(interpreter.started.back().path, "C:\\temp\\MP_CL2.bat");
}

TEST_F(CommandLineMode, With_all_thousand_names_taken_the_user_is_asked_to_clean_up) {
    world.write("C:\\temp\\MP_CL.bat", "");
    for (int n = 1; n < 999; ++n) {
        world.write("C:\\temp\\MP_CL" + std::to_string(n) + ".bat", "");
    }
    EXPECT_EQ(run("-I C:\\batch.ini"), CommandLineResult::BatchStarted);
    EXPECT_EQ(interpreter.started.back().path, "C:\\temp\\MP_CL999.bat");

    records = {}; // another run of the program
    EXPECT_EQ(run("-I C:\\batch.ini"), CommandLineResult::NothingStarted);
    EXPECT_EQ(interpreter.started.size(), 1U);
    EXPECT_THAT(desktop.messages,
                ElementsAre(Message{.text = "Need to clean user \"C:\\temp\\\" folder.",
                                    .title = "Tarnwick",
                                    .icon = MessageIcon::None,
                                    .buttons = MessageButtons::Ok}));
    EXPECT_FALSE(world.exists("C:\\temp\\MP_CL1000.bat"));
}

class BrokenCommandLineMode : public CommandLineMode {
  protected:
    BrokenCommandLineMode() { files = &faulty; }

    void expectReport(std::string_view text, std::string_view procedure, ErrorNumber number) {
        EXPECT_EQ(run(text), CommandLineResult::NothingStarted);
        EXPECT_THAT(interpreter.started, IsEmpty());
        EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", procedure, number)));
    }

    FaultyFiles faulty{world.files()};
    const std::string own = "Public Sub RunCommandLine(ByVal sTarnwickCommandLine As String)";
};

TEST_F(BrokenCommandLineMode, An_ini_file_that_another_program_keeps_to_itself_is_reported) {
    faulty.failAt(FileOperation::OpenForReading, 1, RunTimeError(ErrorNumber::PermissionDenied));
    expectReport("-I C:\\batch.ini", "Public Sub ReadINIFile()", ErrorNumber::PermissionDenied);
}

TEST_F(BrokenCommandLineMode, A_configuration_file_that_cannot_be_read_is_reported_and_ends_it) {
    world.write("D:\\mp.cfg", "output\r\n");
    storeDefinition("Configuration File=D:\\mp.cfg\r\n");
    faulty.failAt(FileOperation::OpenForReading, 2, RunTimeError(ErrorNumber::PermissionDenied));
    expectReport("-I C:\\batch.ini", "Private Sub GetCFGValues()", ErrorNumber::PermissionDenied);
}

TEST_F(BrokenCommandLineMode, An_error_while_events_run_before_the_start_leaves_no_batch) {
    events.handler = [] { throw RunTimeError(ErrorNumber::InternalError); };
    expectReport("-I C:\\batch.ini -n", own, ErrorNumber::InternalError);
    EXPECT_THAT(world.files().listFiles("C:\\temp", ""), ElementsAre("MPDELETE.bat"));
}

TEST_F(BrokenCommandLineMode, An_error_behind_the_start_does_not_undo_it) {
    events.handler = [this] {
        if (!interpreter.started.empty()) {
            throw RunTimeError(ErrorNumber::InternalError);
        }
    };
    EXPECT_EQ(run("-I C:\\batch.ini"), CommandLineResult::BatchStarted);
    EXPECT_TRUE(world.exists("C:\\temp\\MP_CL.bat"));
}

TEST_F(BrokenCommandLineMode, A_batch_that_cannot_be_created_is_reported) {
    faulty.failAlways(FileOperation::CreateNew, RunTimeError(ErrorNumber::PathFileAccess));
    expectReport("-I C:\\batch.ini", own, ErrorNumber::PathFileAccess);
}

TEST_F(BrokenCommandLineMode, A_temporary_folder_that_cannot_be_written_is_reported) {
    faulty.failAlways(FileOperation::Create, RunTimeError(ErrorNumber::PathFileAccess));
    expectReport("-I C:\\batch.ini", own, ErrorNumber::PathFileAccess);
}

TEST_F(BrokenCommandLineMode, A_full_disk_is_reported_and_leaves_no_half_written_batch) {
    // Room for the delete batch and the notification, and for a part of the batch.
    faulty.fillDiskAfter(200);
    expectReport("-I C:\\batch.ini -n", own, ErrorNumber::DiskFull);
    EXPECT_THAT(world.files().listFiles("C:\\temp", ""), ElementsAre("MPDELETE.bat"));
}

TEST_F(BrokenCommandLineMode, A_batch_that_cannot_be_started_is_reported_and_removed) {
    interpreter.failure = RunTimeError(ErrorNumber::PathFileAccess);
    expectReport("-I C:\\batch.ini -n", own, ErrorNumber::PathFileAccess);
    EXPECT_THAT(world.files().listFiles("C:\\temp", ""), ElementsAre("MPDELETE.bat"));
}

TEST_F(BrokenCommandLineMode, A_folder_that_can_no_longer_be_listed_is_reported) {
    faulty.failAt(FileOperation::ListFiles, 2, RunTimeError(ErrorNumber::PathNotFound));
    expectReport("-I C:\\batch.ini -e *.met", own, ErrorNumber::PathNotFound);
}

} // namespace
} // namespace tarnwick
