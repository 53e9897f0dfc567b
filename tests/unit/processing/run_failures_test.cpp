#include "unit/processing/run_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// The report comes once, and the window is idle again.
struct FailingRuns : RunWorld {};

constexpr const char* inRun = "Private Sub cmdOK_Click()";
constexpr const char* inWait = "Private Sub ProcessAndWait()";

TEST_F(FailingRuns, A_batch_that_cannot_be_written_ends_the_run) {
    int started = 0;
    interpreter.run = [&](const FakeCommandInterpreter::Started&) {
        world.write(marker, "");
        if (++started == 2) {
            faulty.failAlways(FileOperation::CreateNew, RunTimeError(ErrorNumber::PathFileAccess));
        }
    };
    execute();
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", inWait, ErrorNumber::PathFileAccess)));
    EXPECT_THAT(interpreter.started, SizeIs(2));
    EXPECT_EQ(window.status, "CNS - Processing b.met...");
    expectCleanedUp();
}

TEST_F(FailingRuns, An_interpreter_that_cannot_be_started_ends_the_run) {
    interpreter.failure = RunTimeError(ErrorNumber::PathFileAccess);
    execute();
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", inWait, ErrorNumber::PathFileAccess)));
    EXPECT_EQ(events.secondsWaited, 0);
    expectCleanedUp();
}

TEST_F(FailingRuns, An_old_batch_that_cannot_be_deleted_ends_the_run) {
    world.write(batch, "old");
    faulty.failAlways(FileOperation::Remove, RunTimeError(ErrorNumber::PermissionDenied));
    execute();
    faulty.heal();
    world.files().remove(batch);
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", inRun, ErrorNumber::PermissionDenied)));
    EXPECT_THAT(interpreter.started, IsEmpty());
    expectCleanedUp();
}

TEST_F(FailingRuns, A_virus_scanner_that_looks_at_a_temporary_file_for_a_moment_goes_unnoticed) {
    window.given.records = {"a.met"};
    definition().iProcessCNS = 0;
    for (const ErrorNumber lock : {ErrorNumber::PermissionDenied, ErrorNumber::PathFileAccess}) {
        for (const FileOperation operation : {FileOperation::CreateNew, FileOperation::Remove}) {
            SCOPED_TRACE(operation);
            world.write(batch, "old");
            world.write(marker, "old");
            whileEventsRun = [this, end = clock.steady + 4.5] {
                if (clock.steady >= end) {
                    faulty.heal();
                }
            };
            faulty.failAlways(operation, RunTimeError(lock));
            execute();
            EXPECT_EQ(window.status, "Done!");
        }
    }
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_THAT(interpreter.started, SizeIs(4));
}

TEST_F(FailingRuns, A_lock_that_stays_is_told_after_five_seconds) {
    const double begin = clock.steady;
    faulty.failAlways(FileOperation::CreateNew, RunTimeError(ErrorNumber::PermissionDenied));
    execute();
    EXPECT_EQ(clock.steady, begin + 5);
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", inWait, ErrorNumber::PermissionDenied)));
    EXPECT_THAT(interpreter.started, IsEmpty());
}

TEST_F(FailingRuns, A_lock_is_not_waited_for_when_the_user_cancels) {
    faulty.failAlways(FileOperation::CreateNew, RunTimeError(ErrorNumber::PermissionDenied));
    whileEventsRun = [this, end = clock.steady + 1] {
        if (clock.steady >= end) {
            run->cancel();
        }
    };
    execute();
    EXPECT_EQ(clock.steady, 1001);
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_THAT(interpreter.started, IsEmpty());
}

TEST_F(FailingRuns, What_is_no_lock_is_told_at_once) {
    faulty.failAlways(FileOperation::CreateNew, RunTimeError(ErrorNumber::DiskFull));
    execute();
    EXPECT_EQ(events.secondsWaited, 0);
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", inWait, ErrorNumber::DiskFull)));
}

TEST_F(FailingRuns, What_cannot_be_deleted_at_the_end_is_left_without_a_word) {
    window.given.records = {"a.met"};
    definition().iProcessCNS = 0;
    interpreter.run = [&](const FakeCommandInterpreter::Started&) {
        world.write(marker, "");
        faulty.failAlways(FileOperation::Remove, RunTimeError(ErrorNumber::PermissionDenied));
    };
    execute();
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_EQ(window.status, "Done!");
    EXPECT_EQ(journal.back(), "progress 0.000");
}

TEST_F(FailingRuns, A_batch_that_did_not_run_ends_the_run) {
    interpreter.run = nullptr; // scripts may be forbidden: the interpreter ends at once
    execute();
    ASSERT_THAT(desktop.messages, SizeIs(1));
    EXPECT_THAT(desktop.messages.front().text, testing::HasSubstr("\"C:\\temp\\MPtmp.bat\""));
    EXPECT_THAT(interpreter.started, SizeIs(1));
    EXPECT_EQ(window.status, "CNS - Processing a.met...");
    expectCleanedUp();
}

TEST_F(FailingRuns, A_tool_that_failed_goes_unnoticed) {
    // Its batch writes the marker all the same; nothing else is looked at.
    execute();
    EXPECT_FALSE(world.exists(R"(D:\cns\a.cns)"));
    EXPECT_EQ(window.status, "Done!");
}

} // namespace
} // namespace tarnwick
