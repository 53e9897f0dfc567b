#include "support/faulty_files.hpp"
#include "unit/processing/unattended_world.hpp"

#include <utility>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UnattendedFailures : public UnattendedWorld {
  protected:
    UnattendedFailures() { files = &faulty; }

    void expectReport(std::string_view text, std::string_view procedure, ErrorNumber number) {
        EXPECT_EQ(run(text), UnattendedResult::NothingStarted);
        EXPECT_THAT(interpreter.started, IsEmpty());
        EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", procedure, number)));
    }

    FaultyFiles faulty{world.files()};
    const std::string own = "Public Sub RunCommandLine(ByVal sTarnwickCommandLine As String)";
};

TEST_F(UnattendedFailures, An_ini_file_that_another_program_keeps_to_itself_is_reported) {
    faulty.failAt(FileOperation::OpenForReading, 1, RunTimeError(ErrorNumber::PermissionDenied));
    expectReport("-I C:\\batch.ini", "Public Sub ReadINIFile()", ErrorNumber::PermissionDenied);
}

TEST_F(UnattendedFailures, A_configuration_file_that_cannot_be_read_is_reported_and_ends_it) {
    world.write("D:\\mp.cfg", "output\r\n");
    storeDefinition("Configuration File=D:\\mp.cfg\r\n");
    faulty.failAt(FileOperation::OpenForReading, 2, RunTimeError(ErrorNumber::PermissionDenied));
    expectReport("-I C:\\batch.ini", "Private Sub GetCFGValues()", ErrorNumber::PermissionDenied);
}

TEST_F(UnattendedFailures, An_error_while_events_run_before_the_start_leaves_no_batch) {
    events.handler = [] { throw RunTimeError(ErrorNumber::InternalError); };
    expectReport("-I C:\\batch.ini -n", own, ErrorNumber::InternalError);
    EXPECT_THAT(world.files().listFiles("C:\\temp", "").names, ElementsAre("MPDELETE.bat"));
}

TEST_F(UnattendedFailures, An_error_behind_the_start_does_not_undo_it) {
    events.handler = [this] {
        if (!interpreter.started.empty()) {
            throw RunTimeError(ErrorNumber::InternalError);
        }
    };
    EXPECT_EQ(run("-I C:\\batch.ini"), UnattendedResult::BatchStarted);
    EXPECT_TRUE(world.exists("C:\\temp\\MP_CL.bat"));
}

TEST_F(UnattendedFailures, A_batch_that_cannot_be_created_is_reported) {
    faulty.failAlways(FileOperation::CreateNew, RunTimeError(ErrorNumber::PathFileAccess));
    expectReport("-I C:\\batch.ini", own, ErrorNumber::PathFileAccess);
}

TEST_F(UnattendedFailures, A_temporary_folder_that_cannot_be_written_is_reported) {
    faulty.failAlways(FileOperation::Replace, RunTimeError(ErrorNumber::PathFileAccess));
    expectReport("-I C:\\batch.ini", own, ErrorNumber::PathFileAccess);
}

TEST_F(UnattendedFailures, A_full_disk_is_reported_and_leaves_no_half_written_batch) {
    // Room for the delete batch and the notification, and for a part of the batch.
    faulty.fillDiskAfter(200);
    expectReport("-I C:\\batch.ini -n", own, ErrorNumber::DiskFull);
    EXPECT_THAT(world.files().listFiles("C:\\temp", "").names, ElementsAre("MPDELETE.bat"));
}

TEST_F(UnattendedFailures, A_batch_that_cannot_be_started_is_reported_and_removed) {
    interpreter.failure = RunTimeError(ErrorNumber::PathFileAccess);
    expectReport("-I C:\\batch.ini -n", own, ErrorNumber::PathFileAccess);
    EXPECT_THAT(world.files().listFiles("C:\\temp", "").names, ElementsAre("MPDELETE.bat"));
}

TEST_F(UnattendedFailures, A_definitions_own_folder_that_cannot_be_listed_does_not_stop_another) {
    faulty.failAt(FileOperation::ListFiles, 1, RunTimeError(ErrorNumber::PathFileAccess));
    desktop.whileShown = [this](const Message&) { EXPECT_EQ(interpreter.started.size(), 1U); };
    EXPECT_EQ(run("-I C:\\batch.ini -F D:\\other"), UnattendedResult::BatchStarted);
    EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Private Sub LoadFiles()",
                                                          ErrorNumber::PathFileAccess)));
    const std::string batch = interpreter.started.front().content;
    EXPECT_THAT(batch, testing::HasSubstr("D:\\other\\z.met"));
    EXPECT_THAT(batch, testing::Not(testing::HasSubstr("D:\\meta\\in")));
}

TEST_F(UnattendedFailures, A_folder_that_cannot_be_listed_is_told_once_and_nothing_is_started) {
    for (const auto& [text, nth] :
         {std::pair{"-I C:\\batch.ini", 1}, std::pair{"-I C:\\batch.ini -F D:\\other", 2}}) {
        desktop.messages.clear();
        faulty.failAt(FileOperation::ListFiles, nth, RunTimeError(ErrorNumber::PathNotFound));
        EXPECT_EQ(run(text), UnattendedResult::NothingStarted);
        EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Private Sub LoadFiles()",
                                                              ErrorNumber::PathNotFound)));
    }
    EXPECT_THAT(interpreter.started, IsEmpty());
}

} // namespace
} // namespace tarnwick
