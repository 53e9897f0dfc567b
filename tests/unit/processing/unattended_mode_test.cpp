#include "support/forwarding_files.hpp"
#include "support/recording_files.hpp"
#include "unit/processing/unattended_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

struct UnattendedMode : UnattendedWorld {};

TEST_F(UnattendedMode, A_stored_definition_becomes_a_batch_to_the_byte) {
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
    EXPECT_THAT(world.files().listFiles("C:\\temp", "").names,
                ElementsAre("MPDELETE.bat", "MP_CL.bat"));
}

TEST_F(UnattendedMode, Waiting_events_run_before_and_after_the_start) {
    std::vector<std::size_t> startedSoFar;
    events.handler = [&] { startedSoFar.push_back(interpreter.started.size()); };
    run("-I C:\\batch.ini");
    EXPECT_THAT(startedSoFar, ElementsAre(0U, 1U));
}

TEST_F(UnattendedMode, What_an_earlier_run_left_is_replaced) {
    world.write("C:\\temp\\MPDELETE.bat", "del %1\r\ndel %2\r\n");
    world.write("C:\\temp\\MP_Notify.txt", std::string(500, 'x'));
    run("-I C:\\batch.ini -n");
    EXPECT_EQ(world.read("C:\\temp\\MPDELETE.bat"), "del %1\r\n");
    EXPECT_EQ(world.read("C:\\temp\\MP_Notify.txt"),
              "The Tarnwick script \"C:\\temp\\MP_CL.bat\" is done running.\r\n");
}

TEST_F(UnattendedMode, Every_run_puts_a_delete_batch_of_its_own_into_place_in_one_step) {
    world.write("C:\\temp\\MPDELETE.bat", "del %1\r\n"); // right, but whose is it?
    world.write("C:\\temp\\MPDELETE.tmp", "another run's");
    RecordingFiles recording(world.files());
    files = &recording;
    run("-I C:\\batch.ini");
    EXPECT_EQ(recording.count(FileOperation::CreateNew, "C:\\temp\\MPDELETE1.tmp"), 1);
    EXPECT_EQ(recording.count(FileOperation::Replace, "C:\\temp\\MPDELETE1.tmp"), 1);
    EXPECT_EQ(recording.count(FileOperation::Remove, "C:\\temp\\MPDELETE.bat"), 0);
    EXPECT_EQ(world.read("C:\\temp\\MPDELETE.bat"), "del %1\r\n");
    EXPECT_EQ(world.read("C:\\temp\\MPDELETE.tmp"), "another run's");
    EXPECT_FALSE(world.exists("C:\\temp\\MPDELETE1.tmp"));
}

TEST_F(UnattendedMode, The_notification_is_a_new_file) {
    world.write("C:\\temp\\MP_Notify.txt", "somebody else's");
    RecordingFiles recording(world.files());
    files = &recording;
    run("-I C:\\batch.ini -n");
    EXPECT_EQ(recording.count(FileOperation::Remove, "C:\\temp\\MP_Notify.txt"), 1);
    EXPECT_EQ(recording.count(FileOperation::Create), 0);
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

TEST_F(UnattendedMode, Of_two_runs_at_the_same_moment_each_gets_a_batch_of_its_own) {
    OvertakenFiles overtaken(world);
    files = &overtaken;
    EXPECT_EQ(run("-I C:\\batch.ini"), UnattendedResult::BatchStarted);
    EXPECT_EQ(interpreter.started.front().path, "C:\\temp\\MP_CL1.bat");
    EXPECT_EQ(world.read("C:\\temp\\MP_CL.bat"), "the other run's");
}

TEST_F(UnattendedMode, A_folder_is_asked_for_once_for_a_batch_not_once_per_record) {
    RecordingFiles recording(world.files());
    files = &recording;
    run("-I C:\\batch.ini");
    const int withTwo = recording.count(FileOperation::CanListFolder);
    recording.forget();
    for (int i = 0; i < 100; ++i) {
        world.write("D:\\meta\\in\\r" + std::to_string(i) + ".met", "");
    }
    run("-I C:\\batch.ini");
    EXPECT_THAT(interpreter.started.back().content, testing::HasSubstr("\\r99.met"));
    EXPECT_EQ(recording.count(FileOperation::CanListFolder), withTwo);
}

TEST_F(UnattendedMode, With_a_notification_the_batch_shows_and_deletes_it_before_itself) {
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

TEST_F(UnattendedMode, Paths_that_are_not_full_reach_the_batch_as_they_were_checked) {
    for (const char* file :
         {R"(C:\app\tools\mp.exe)", R"(C:\app\cfg\a.cfg)", R"(C:\app\names.txt)"}) {
        world.write(file, "");
    }
    world.makeFolder(R"(D:\meta\out)");
    storeDefinition(
        "MP EXECUTABLE=tools\\mp.exe\r\nCNS EXECUTABLE=cns.exe\r\n"
        "Configuration File=cfg\\a.cfg\r\nAliases File=names.txt\r\n"
        "CNS Output Folder=cns\r\nGRID_Error=..\\out\r\nInput File Extension=a.met\r\n");
    EXPECT_THAT(
        batchOf(R"(-I C:\batch.ini)"),
        HasSubstr(R"(call "C:\app\cns.exe" -c "C:\app\cfg\a.cfg" -l en -a "C:\app\names.txt")"
                  R"( -o "D:\meta\in\cns\a.cns" "D:\meta\in\a.met")"
                  "\r\n"
                  R"(call "C:\app\tools\mp.exe" -c "C:\app\cfg\a.cfg" -l en)"
                  R"( -e "D:\meta\out\a.err" "D:\meta\in\cns\a.cns")"
                  "\r\n"));
    EXPECT_EQ(definition.sMPExecutable, R"(tools\mp.exe)"); // and is saved so
}

TEST_F(UnattendedMode, A_tool_among_the_records_is_not_the_one_that_is_named) {
    world.write(R"(D:\meta\in\tool.exe)", "");
    storeDefinition("MP EXECUTABLE=tool.exe\r\n");
    expectNothingDone(R"(-I C:\batch.ini)");
    EXPECT_THAT(desktop.messages.front().text,
                testing::HasSubstr("The MP executable file \"tool.exe\" does not exist."));
}

TEST_F(UnattendedMode, Cns_alone_writes_no_mp_line) {
    storeDefinition("Process MP=0\r\nInput File Extension=a.*\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini"),
                testing::EndsWith("\r\n\r\ncall \"C:\\app\\cns.exe\" -l en -o \"D:\\cns\\a.cns\" "
                                  "\"D:\\meta\\in\\a.met\"\r\n"
                                  "Call \"C:\\temp\\MPDELETE.bat\" \"C:\\temp\\MP_CL.bat\"\r\n"));
}

TEST_F(UnattendedMode, A_network_folder_is_not_entered) {
    world.makeShare("\\\\server\\share");
    world.write("\\\\server\\share\\n.met", "");
    storeDefinition("Process CNS=0\r\nInput Folder=\\\\server\\share\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini"), StartsWith("\r\ncall \"C:\\app\\mp.exe\""));
}

TEST_F(UnattendedMode, A_configuration_file_that_names_the_outputs_gives_bare_names) {
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

TEST_F(UnattendedMode, An_accent_reaches_the_tool_through_the_interpreters_code_page) {
    world.write("D:\\other\\caf\xE9 1.met", "");
    storeDefinition("Process CNS=0\r\nInput Folder=D:\\other\r\nInput File Extension=caf*\r\n");
    EXPECT_THAT(batchOf("-I C:\\batch.ini"),
                testing::HasSubstr("-e \"D:\\out\\caf\x82 1.err\" \"D:\\other\\caf\x82 1.met\""));
}

TEST_F(UnattendedMode, Where_nobody_sees_the_screen_the_note_is_left_out_and_that_is_said) {
    desktop.seen = false;
    EXPECT_EQ(run("-I C:\\batch.ini -n"), UnattendedResult::BatchStarted);
    ASSERT_EQ(interpreter.started.size(), 1U);
    EXPECT_THAT(interpreter.started.front().content, testing::Not(HasSubstr("notepad")));
    EXPECT_THAT(world.files().listFiles("C:\\temp", "").names,
                ElementsAre("MPDELETE.bat", "MP_CL.bat"));
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The note that -n asks for is left out: nobody can see it.")));
}

TEST_F(UnattendedMode, Where_nobody_sees_the_screen_nothing_is_said_of_a_note_that_nobody_wants) {
    desktop.seen = false;
    EXPECT_THAT(batchOf("-I C:\\batch.ini"), HasSubstr("a.met"));
}

} // namespace
} // namespace tarnwick
