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
            faulty.failAlways(FileOperation::Create, RunTimeError(ErrorNumber::PathFileAccess));
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
    faulty.failAt(FileOperation::Remove, 1, RunTimeError(ErrorNumber::PermissionDenied));
    execute();
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", inRun, ErrorNumber::PermissionDenied)));
    EXPECT_THAT(interpreter.started, IsEmpty());
    expectCleanedUp();
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

TEST_F(FailingRuns, A_tool_that_failed_goes_unnoticed) {
    // Its batch writes the marker all the same; nothing else is looked at.
    execute();
    EXPECT_FALSE(world.exists(R"(D:\cns\a.cns)"));
    EXPECT_EQ(window.status, "Done!");
}

} // namespace
} // namespace tarnwick
