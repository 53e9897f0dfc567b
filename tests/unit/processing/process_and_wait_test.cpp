#include "processing/process_and_wait.hpp"
#include "support/fake_clock.hpp"
#include "support/fake_command_interpreter.hpp"
#include "support/forwarding_files.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

using testing::ElementsAre;

// Keeps a short name for one folder.
class ShortNames : public ForwardingFiles {
  public:
    using ForwardingFiles::ForwardingFiles;
    [[nodiscard]] std::string shortPath(std::string_view path) const override {
        return shortened.empty() ? ForwardingFiles::shortPath(path) : shortened;
    }
    std::string shortened;
};

struct Waits : testing::Test {
    Waits() {
        world.makeFolder(R"(C:\temp)");
        events.handler = [this] { times.push_back(clock.steady - 1000); };
        interpreter.hasEnded = [this] { return batchEnds && world.exists(temporary.marker); };
        // The tool ends that many seconds behind its start.
        interpreter.run = [this](const FakeCommandInterpreter::Started&) {
            events.handler = [this, started = clock.steady] {
                times.push_back(clock.steady - 1000);
                if (clock.steady - started >= toolTakes) {
                    world.write(temporary.marker, "Done!\r\n");
                }
                if (cancelAt > 0 && clock.steady - 1000 >= cancelAt) {
                    stop.cancelled = true;
                }
            };
        };
    }

    Waited wait() {
        return ProcessAndWait({.files = files,
                               .desktop = desktop,
                               .interpreter = interpreter,
                               .events = events,
                               .clock = clock},
                              temporary, R"(D:\in)", "call it", stop, left);
    }
    double waited() {
        EXPECT_EQ(wait(), Waited::Done);
        return clock.steady - 1000;
    }
    static Message notRunReport() {
        Message report =
            errorReport("frmMain", "Private Sub ProcessAndWait()", ErrorNumber::PathFileAccess);
        const std::string told = "Path/File access error";
        report.text.insert(report.text.find(told) + told.size(),
                           R"(: the batch file "C:\temp\MPtmp.bat" ended before its last line)");
        return report;
    }
    std::string target(std::string_view folder, std::string_view shortened = {}) {
        files.shortened = shortened;
        return redirectionTarget(files, TemporaryFiles(folder));
    }

    HostedWorld world;
    ShortNames files{world.files()};
    ScriptedDesktop desktop;
    FakeCommandInterpreter interpreter{world.files()};
    FakeClock clock;
    FakePendingEvents events{clock};
    TemporaryFiles temporary{"C:\\temp\\"};
    StopRequest stop;
    LeftBatch left;
    std::vector<double> times; // of letting events run
    double toolTakes = 0;
    bool batchEnds = true;
    double cancelAt = 0;
};

TEST_F(Waits, A_tool_that_is_quick_takes_two_seconds) {
    EXPECT_EQ(waited(), 2);
}

TEST_F(Waits, After_the_first_second_it_looks_every_two) {
    toolTakes = 4;
    EXPECT_EQ(waited(), 6); // seen behind five seconds, and one more
}

TEST_F(Waits, Events_that_come_in_a_pause_run_at_once_and_do_not_shorten_it) {
    // Waiting ends early, as when an event waits.
    class Restless : public FakePendingEvents {
      public:
        using FakePendingEvents::FakePendingEvents;
        void waitForEvent(double seconds) override {
            FakePendingEvents::waitForEvent(std::min(seconds, 0.25));
        }
    };
    Restless restless(clock);
    int ran = 0;
    restless.handler = [&] { ++ran; };
    pause(clock, restless, 2, stop);
    EXPECT_EQ(clock.steady, 1002);
    EXPECT_EQ(ran, 9);
}

TEST_F(Waits, A_pause_over_midnight_keeps_its_length) {
    class AroundMidnight : public FakeClock {
      public:
        [[nodiscard]] std::string longDate() const override { return askedInVain(); }
        [[nodiscard]] std::string longTime() const override { return askedInVain(); }

      private:
        static std::string askedInVain() {
            ADD_FAILURE() << "the time of day begins anew at midnight";
            return {};
        }
    };
    AroundMidnight midnight;
    midnight.steady = 24 * 60 * 60 - 1;
    FakePendingEvents nightly(midnight);
    pause(midnight, nightly, 2, stop);
    EXPECT_EQ(midnight.steady, 24 * 60 * 60 + 1);
    EXPECT_EQ(nightly.secondsWaited, 2);
}

TEST_F(Waits, A_pause_rests_the_processor_for_all_of_its_length) {
    pause(clock, events, 2, stop);
    EXPECT_EQ(events.secondsWaited, 2);
    EXPECT_THAT(times, ElementsAre(0, 2));
}

TEST_F(Waits, A_tool_that_never_ends_is_waited_for_until_the_user_cancels) {
    toolTakes = std::numeric_limits<double>::infinity();
    cancelAt = 4000;
    EXPECT_EQ(wait(), Waited::Stopped);
    EXPECT_GE(clock.steady - 1000, 4000);
    EXPECT_LE(clock.steady - 1000, 4002);
}

TEST_F(Waits, The_marker_is_taken_for_the_end_before_the_interpreter_has_ended) {
    toolTakes = 0.5;
    interpreter.hasEnded = [this] { return clock.steady >= 1001.5; };
    EXPECT_EQ(waited(), 2); // had it looked for that end alone, 4
}

TEST_F(Waits, An_old_marker_is_not_taken_for_the_tools_own) {
    world.write(temporary.marker, "Done!\r\n");
    toolTakes = 4;
    EXPECT_EQ(waited(), 6);
}

TEST_F(Waits, The_marker_of_a_batch_that_was_left_to_itself_is_not_taken_for_this_tools) {
    interpreter.hasEnded = [this] { return clock.steady >= 1009; };
    EXPECT_EQ(waited(), 10); // the marker is there from the beginning
}

TEST_F(Waits, A_tool_that_runs_on_beside_a_strange_marker_can_be_cancelled) {
    batchEnds = false;
    cancelAt = 20;
    EXPECT_EQ(wait(), Waited::Stopped);
    EXPECT_LE(clock.steady - 1000, 22);
}

TEST_F(Waits, A_batch_that_ends_without_a_marker_is_reported_and_not_waited_for) {
    toolTakes = std::numeric_limits<double>::infinity();
    interpreter.hasEnded = [this] { return clock.steady >= 1004; };
    EXPECT_EQ(wait(), Waited::Failed);
    EXPECT_EQ(clock.steady - 1000, 5);
    EXPECT_THAT(desktop.messages, ElementsAre(notRunReport()));
}

TEST_F(Waits, A_batch_that_is_kept_from_running_at_all_is_reported) {
    toolTakes = std::numeric_limits<double>::infinity();
    interpreter.hasEnded = [] { return true; };
    EXPECT_EQ(wait(), Waited::Failed);
    EXPECT_THAT(desktop.messages, ElementsAre(notRunReport()));
}

TEST_F(Waits, A_marker_that_comes_just_before_the_end_counts) {
    toolTakes = std::numeric_limits<double>::infinity();
    interpreter.hasEnded = [this] {
        world.write(temporary.marker, "Done!\r\n"); // since the program looked for it
        return true;
    };
    EXPECT_EQ(wait(), Waited::Done);
}

TEST_F(Waits, Whoever_cancels_is_not_told_of_a_batch_that_ended_early) {
    toolTakes = std::numeric_limits<double>::infinity();
    interpreter.hasEnded = [this] { return stop.cancelled = true; };
    EXPECT_EQ(wait(), Waited::Stopped);
    EXPECT_THAT(desktop.messages, testing::IsEmpty());
}

TEST_F(Waits, A_longer_old_batch_is_replaced_whole) {
    world.write(temporary.batch, std::string(1000, 'x'));
    EXPECT_EQ(wait(), Waited::Done);
    EXPECT_EQ(interpreter.started.front().content,
              "@echo off\r\nD:\r\ncd \\in\r\n@echo on\r\n\r\ncall it\r\n"
              "echo Done! > C:\\temp\\MPdone.tmp\r\n");
}

TEST_F(Waits, The_marker_is_named_as_it_is_where_nothing_in_it_misleads_the_interpreter) {
    EXPECT_EQ(target(R"(C:\Users\Ren)"
                     "\xE9"
                     R"(\AppData\Local\Temp\)"),
              R"(C:\Users\Ren)"
              "\xE9"
              R"(\AppData\Local\Temp\MPdone.tmp)");
    EXPECT_EQ(target(R"(\\server\share\tmp-1_2.3~4#)"),
              R"(\\server\share\tmp-1_2.3~4#\MPdone.tmp)");
}

TEST_F(Waits, A_temporary_folder_with_blanks_is_named_in_its_short_form) {
    EXPECT_EQ(target(R"(C:\My Temp\)", R"(C:\MYTEMP~1)"), R"(C:\MYTEMP~1\MPdone.tmp)");
    EXPECT_EQ(target(R"(C:\R&D\)", R"(C:\RD~1\)"), R"(C:\RD~1\MPdone.tmp)");
}

TEST_F(Waits, Without_a_short_form_the_marker_stands_in_quotation_marks) {
    for (const char* const folder : {"C:\\My Temp\\", "C:\\R&D\\", "C:\\a^b\\", "C:\\a(1)\\",
                                     "C:\\a,b\\", "C:\\a;b\\", "C:\\a=b\\"}) {
        world.makeFolder(folder);
        EXPECT_EQ(target(folder), '"' + std::string(folder) + "MPdone.tmp\"");
    }
    // A short form that is no better is none.
    EXPECT_EQ(target(R"(C:\R&D\)", R"(C:\R&D)"), R"("C:\R&D\MPdone.tmp")");
    // Where nothing is there to have one.
    EXPECT_EQ(target(R"(C:\not there\)"), R"("C:\not there\MPdone.tmp")");
}

TEST_F(Waits, A_percent_sign_is_no_variable) {
    EXPECT_EQ(target(R"(C:\100%\)"), R"("C:\100%%\MPdone.tmp")");
}

} // namespace
} // namespace tarnwick
