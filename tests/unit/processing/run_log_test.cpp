#include "unit/processing/run_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct LoggedRuns : RunWorld {
    void useLog(std::string_view name) {
        definition().bCommandLineLogging = true;
        definition().sCommandLineLogFile = name;
    }
};

TEST_F(LoggedRuns, The_log_lies_in_the_input_folder_and_holds_every_line_as_it_is) {
    useLog("run.log");
    world.write(R"(D:\in\run.log)", std::string(9000, 'x'));
    window.given.records = {"caf\xE9.met"};
    std::string whileRunning;
    int closed = -1;
    whileEventsRun = [&] {
        if (interpreter.started.size() == 1 && whileRunning.empty()) {
            whileRunning = world.read(R"(D:\in\run.log)");
            closed = files.count(FileOperation::Close, R"(D:\in\run.log)");
        }
    };
    execute();
    const std::string cns = "call \"C:\\app\\cns.exe\" -l en -o \"D:\\cns\\caf\xE9.cns\" "
                            "\"D:\\in\\caf\xE9.met\"\r\n";
    EXPECT_EQ(world.read(R"(D:\in\run.log)"),
              cns + "call \"C:\\app\\mp.exe\" -l en -e \"D:\\out\\caf\xE9.err\" "
                    "\"D:\\cns\\caf\xE9.cns\"\r\n");
    EXPECT_EQ(whileRunning, cns);
    EXPECT_EQ(closed, 0); // open for the whole run
    EXPECT_EQ(files.count(FileOperation::Close, R"(D:\in\run.log)"), 1);
    EXPECT_EQ(files.count(FileOperation::Create, R"(D:\in\run.log)"), 1);
}

TEST_F(LoggedRuns, A_log_name_with_a_folder_is_that_file) {
    useLog(R"(D:\out\run.log)");
    window.given.records.clear();
    execute();
    EXPECT_EQ(world.read(R"(D:\out\run.log)"), "");
    EXPECT_THAT(entries("logging off"), IsEmpty());
}

TEST_F(LoggedRuns, A_log_in_a_missing_folder_switches_logging_off_without_a_word) {
    useLog(R"(D:\nowhere\run.log)");
    execute();
    EXPECT_THAT(entries("logging off"), SizeIs(1));
    EXPECT_FALSE(world.exists(R"(D:\nowhere)"));
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_EQ(window.status, "Done!");
}

TEST_F(LoggedRuns, An_input_folder_that_ends_in_a_backslash_gets_no_second_one) {
    useLog("run.log");
    definition().sInputFolder = "D:\\in\\";
    window.given.records.clear();
    execute();
    EXPECT_EQ(files.count(FileOperation::Create, R"(D:\in\run.log)"), 1);
}

TEST_F(LoggedRuns, Without_logging_no_log_is_made_whatever_its_name) {
    definition().sCommandLineLogFile = "run.log";
    execute();
    EXPECT_FALSE(world.exists(R"(D:\in\run.log)"));
}

constexpr const char* inRun = "Private Sub cmdOK_Click()";

TEST_F(LoggedRuns, A_log_that_cannot_be_written_keeps_the_run_from_starting) {
    useLog("run.log");
    world.makeFolder(R"(D:\in\run.log)");
    execute();
    ASSERT_THAT(desktop.messages, SizeIs(1));
    EXPECT_THAT(desktop.messages.front().text,
                testing::StartsWith("Caller:            frmMain - Private Sub cmdOK_Click()\r\n"));
    EXPECT_THAT(interpreter.started, IsEmpty());
    expectCleanedUp();
}

TEST_F(LoggedRuns, A_log_on_a_disk_that_fills_up_ends_the_run_with_one_report) {
    useLog("run.log");
    int started = 0;
    interpreter.run = [&](const FakeCommandInterpreter::Started&) {
        world.write(marker, "");
        if (++started == 2) {
            faulty.fillDiskAfter(20); // of the line of the third tool
        }
    };
    execute();
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", inRun, ErrorNumber::DiskFull)));
    EXPECT_THAT(interpreter.started, SizeIs(2));
    EXPECT_THAT(world.read(R"(D:\in\run.log)"), testing::EndsWith("\r\ncall \"C:\\app\\cns.exe"));
    expectCleanedUp();
}

// What is written is told to the file only when others are to read it, and once more at its end.
TEST_F(LoggedRuns, A_log_that_others_cannot_read_any_more_ends_the_run_with_one_report) {
    useLog("run.log");
    faulty.failAt(FileOperation::Drain, 2, RunTimeError(ErrorNumber::DeviceIO));
    faulty.failAt(FileOperation::Close, 2, RunTimeError(ErrorNumber::DeviceIO)); // behind the batch
    execute();
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", inRun, ErrorNumber::DeviceIO)));
    EXPECT_THAT(interpreter.started, SizeIs(1));
    expectCleanedUp();
}

TEST_F(LoggedRuns, A_log_that_bears_the_name_of_a_record_leaves_that_alone) {
    world.write(R"(D:\in\b.met)", "a record");
    for (const char* const name : {"B.MET", R"(D:\IN\b.met)"}) {
        SCOPED_TRACE(name);
        desktop.messages.clear();
        useLog(name);
        execute();
        ASSERT_THAT(desktop.messages, SizeIs(1));
        EXPECT_THAT(
            desktop.messages.front().text,
            testing::AllOf(
                testing::StartsWith("Caller:            frmMain - Private Sub cmdOK_Click()\r\n"),
                testing::HasSubstr("Description:       File already exists: the command "
                                   "log would replace the record \"D:\\")));
        EXPECT_THAT(interpreter.started, IsEmpty());
        EXPECT_EQ(world.read(R"(D:\in\b.met)"), "a record");
        expectCleanedUp();
    }
}

TEST_F(LoggedRuns, A_log_that_bears_the_name_of_a_record_that_is_not_selected_is_written) {
    useLog("c.met");
    execute();
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_EQ(files.count(FileOperation::Create, R"(D:\in\c.met)"), 1);
}

TEST_F(LoggedRuns, A_log_that_cannot_be_closed_is_told_and_all_else_is_cleaned_up) {
    useLog("run.log");
    window.given.records.clear();
    world.write(batch, "old");
    faulty.failAlways(FileOperation::Close, RunTimeError(ErrorNumber::DiskFull));
    execute();
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", inRun, ErrorNumber::DiskFull)));
    expectCleanedUp();
}

} // namespace
} // namespace tarnwick
