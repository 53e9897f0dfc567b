#include "unit/processing/run_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct InteractiveRuns : RunWorld {};

TEST_F(InteractiveRuns, Both_tools_over_two_records_step_by_step) {
    givePages();
    execute();
    EXPECT_THAT(journal,
                ElementsAre("check", "status ", "commit edits", "progress 0.000", "bar shown",
                            "cancel offered", "busy",
                            // the first record
                            "status Processing a.met...", "status CNS - Processing a.met...",
                            "create C:\\temp\\MPtmp.bat", "start", "delete C:\\temp\\MPtmp.bat",
                            "status MP - Processing a.cns...", "delete C:\\temp\\MPdone.tmp",
                            "create C:\\temp\\MPtmp.bat", "start", "create D:\\in\\tarnwick.tmp",
                            "rewrite D:\\out\\a.html", "progress 50.00",
                            // the second one
                            "status Processing b.met...", "delete C:\\temp\\MPtmp.bat",
                            "status CNS - Processing b.met...", "delete C:\\temp\\MPdone.tmp",
                            "create C:\\temp\\MPtmp.bat", "start", "delete C:\\temp\\MPtmp.bat",
                            "status MP - Processing b.cns...", "delete C:\\temp\\MPdone.tmp",
                            "create C:\\temp\\MPtmp.bat", "start", "create D:\\in\\tarnwick.tmp",
                            "rewrite D:\\out\\b.html", "progress 100.0", "status Done!",
                            // the end
                            "not busy", "delete C:\\temp\\MPdone.tmp", "delete C:\\temp\\MPtmp.bat",
                            "cancel gone", "bar hidden", "progress 0.000"));
    EXPECT_THAT(desktop.messages, IsEmpty());
    ASSERT_THAT(interpreter.started, SizeIs(4));
    EXPECT_EQ(interpreter.started.at(0).path, batch);
    EXPECT_EQ(interpreter.started.at(0).content,
              "@echo off\r\nD:\r\ncd \\in\r\n@echo on\r\n\r\n"
              "call \"C:\\app\\cns.exe\" -l en -o \"D:\\cns\\a.cns\" \"D:\\in\\a.met\"\r\n"
              "echo Done! > C:\\temp\\MPdone.tmp\r\n");
    EXPECT_EQ(interpreter.started.at(1).content,
              "@echo off\r\nD:\r\ncd \\in\r\n@echo on\r\n\r\n"
              "call \"C:\\app\\mp.exe\" -l en -e \"D:\\out\\a.err\" \"D:\\cns\\a.cns\"\r\n"
              "echo Done! > C:\\temp\\MPdone.tmp\r\n");
}

TEST_F(InteractiveRuns, Mp_alone_reads_the_record_and_its_pages_are_rewritten) {
    definition().iProcessCNS = 0;
    givePages();
    window.given.records = {"a.met"};
    execute();
    EXPECT_THAT(statuses(),
                ElementsAre("", "Processing a.met...", "MP - Processing a.met...", "Done!"));
    EXPECT_THAT(entries("rewrite "), ElementsAre("D:\\out\\a.html"));
    EXPECT_EQ(world.read(R"(D:\out\a.html)"), R"(<A HREF="a.dif">)");
    ASSERT_THAT(interpreter.started, SizeIs(1));
    EXPECT_THAT(interpreter.started.front().content,
                testing::HasSubstr(
                    "call \"C:\\app\\mp.exe\" -l en -e \"D:\\out\\a.err\" \"D:\\in\\a.met\"\r\n"));
}

TEST_F(InteractiveRuns, Cns_alone_converts_no_links) {
    definition().iProcessMP = 0;
    givePages();
    window.given.records = {"a.met"};
    execute();
    EXPECT_THAT(statuses(),
                ElementsAre("", "Processing a.met...", "CNS - Processing a.met...", "Done!"));
    EXPECT_THAT(entries("rewrite "), IsEmpty());
    EXPECT_THAT(interpreter.started, SizeIs(1));
}

TEST_F(InteractiveRuns, A_page_that_cannot_be_rewritten_is_reported_and_the_run_goes_on) {
    givePages();
    faulty.failAt(FileOperation::MoveOver, 1, RunTimeError(ErrorNumber::PermissionDenied));
    execute();
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("frmMain", "Private Sub FixRelativePaths()",
                                        ErrorNumber::PermissionDenied)));
    EXPECT_EQ(world.read(R"(D:\out\a.html)"), R"(<A HREF="D:\out\a.dif">)");
    EXPECT_EQ(world.read(R"(D:\out\b.html)"), R"(<A HREF="b.dif">)");
    EXPECT_EQ(window.status, "Done!");
}

TEST_F(InteractiveRuns, After_CNS_its_output_and_not_the_record_gives_the_pages_their_name) {
    givePages();
    definition().sCNSOutputExtension = "_c.cns";
    world.write(R"(D:\out\a_c.html)", R"(<A HREF="D:\out\a_c.dif">)");
    window.given.records = {"a.met"};
    execute();
    EXPECT_EQ(world.read(R"(D:\out\a_c.html)"), R"(<A HREF="a_c.dif">)");
    EXPECT_EQ(world.read(R"(D:\out\a.html)"), R"(<A HREF="D:\out\a.dif">)");
}

TEST_F(InteractiveRuns, Without_the_switch_no_links_are_converted) {
    givePages();
    definition().bConvertHyperlinks = false;
    execute();
    EXPECT_THAT(entries("rewrite "), IsEmpty());
}

TEST_F(InteractiveRuns, Where_the_configuration_file_names_the_outputs_no_links_are_converted) {
    givePages();
    definition().bCfgNamesOutput = true;
    // Then the pages are looked for in the input folder.
    world.write(R"(D:\in\a.html)", R"(<A HREF="D:\in\a.dif">)");
    window.given.records = {"a.met"};
    execute();
    EXPECT_THAT(entries("rewrite "), IsEmpty());
    EXPECT_EQ(world.read(R"(D:\in\a.html)"), R"(<A HREF="D:\in\a.dif">)");
    ASSERT_THAT(interpreter.started, SizeIs(2));
    EXPECT_THAT(interpreter.started.at(1).content,
                testing::HasSubstr("call \"C:\\app\\mp.exe\" -l en \"a.met\"\r\n"));
}

TEST_F(InteractiveRuns, On_a_network_folder_the_batch_stands_nowhere) {
    world.makeShare("\\\\server\\share");
    definition().sInputFolder = R"(\\server\share)";
    definition().iProcessCNS = 0;
    window.given.records = {"a.met"};
    execute();
    EXPECT_EQ(interpreter.started.at(0).content,
              "\r\ncall \"C:\\app\\mp.exe\" -l en -e \"D:\\out\\a.err\" "
              "\"\\\\server\\share\\a.met\"\r\necho Done! > C:\\temp\\MPdone.tmp\r\n");
}

TEST_F(InteractiveRuns, Progress_is_counted_in_fractions_of_the_records) {
    window.given.records = {"a.met", "b.met", "c.met"};
    execute();
    EXPECT_THAT(window.progress, ElementsAre(0, 1 / 3.0 * 100, 2 / 3.0 * 100, 100, 0));
}

TEST_F(InteractiveRuns, With_no_record_selected_it_is_done_at_once) {
    window.given.records.clear();
    execute();
    EXPECT_THAT(statuses(), ElementsAre("", "Done!"));
    EXPECT_EQ(events.secondsWaited, 0);
    expectCleanedUp();
}

TEST_F(InteractiveRuns, A_cancel_with_no_record_to_stop_at_is_the_one_that_says_stopped) {
    window.given.records.clear();
    whileEventsRun = [this] { run->cancel(); };
    execute();
    EXPECT_THAT(statuses(), ElementsAre("", "Stopped!"));
}

// The interpreter of the cancelled run would read the new batch from the middle on.
TEST_F(InteractiveRuns, A_run_behind_a_cancelled_one_waits_for_the_tool_that_still_works) {
    definition().iProcessCNS = 0;
    window.given.records = {"a.met"};
    toolsEnd = false;
    whileEventsRun = [this, end = clock.steady + 4] {
        if (clock.steady >= end) {
            run->cancel();
        }
    };
    execute();
    ASSERT_THAT(interpreter.started, SizeIs(1));
    ASSERT_NE(left, nullptr);
    journal.clear();
    int looks = 0;
    whileEventsRun = [&] {
        EXPECT_FALSE(world.exists(batch));
        if (++looks == 20) {
            toolsEnd = true;
            world.write(marker, "Done!\r\n"); // that tool's own
            whileEventsRun = nullptr;
        }
    };
    execute();
    EXPECT_THAT(statuses(),
                ElementsAre("", "Waiting for the tool of the cancelled run to end...",
                            "Processing a.met...", "MP - Processing a.met...", "Done!"));
    EXPECT_EQ(left, nullptr);
    EXPECT_THAT(interpreter.started, SizeIs(2));
    EXPECT_GE(looks, 20);
    expectCleanedUp();
}

TEST_F(InteractiveRuns, A_batch_whose_wait_breaks_off_is_waited_for_by_the_next_run) {
    toolsEnd = false;
    whileEventsRun = [this] {
        if (!interpreter.started.empty()) {
            whileEventsRun = nullptr;
            throw RunTimeError(ErrorNumber::OutOfMemory);
        }
    };
    execute();
    EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Private Sub ProcessAndWait()",
                                                          ErrorNumber::OutOfMemory)));
    EXPECT_NE(left, nullptr);
}

TEST_F(InteractiveRuns, A_run_that_waits_for_a_cancelled_one_can_be_cancelled_too) {
    definition().bCommandLineLogging = true;
    definition().sCommandLineLogFile = "run.log";
    toolsEnd = false;
    whileEventsRun = [this, end = clock.steady + 4] {
        if (clock.steady >= end) {
            run->cancel();
        }
    };
    execute();
    const std::string log = world.read(R"(D:\in\run.log)");
    whileEventsRun = [this, end = clock.steady + 100] {
        if (clock.steady >= end) {
            run->cancel();
        }
    };
    execute();
    EXPECT_THAT(interpreter.started, SizeIs(1));
    EXPECT_NE(left, nullptr); // the next run will still wait for it
    EXPECT_EQ(world.read(R"(D:\in\run.log)"), log);
    expectCleanedUp();
}

TEST_F(InteractiveRuns, A_batch_that_fails_its_checks_is_only_cleaned_up_after) {
    window.ready = false;
    world.write(batch, "old");
    world.write(marker, "old");
    execute();
    EXPECT_THAT(journal, ElementsAre("check", "not busy", "delete C:\\temp\\MPdone.tmp",
                                     "delete C:\\temp\\MPtmp.bat", "cancel gone", "bar hidden",
                                     "progress 0.000"));
    EXPECT_THAT(interpreter.started, IsEmpty());
}

TEST_F(InteractiveRuns, What_is_edited_during_the_run_counts_for_the_next_one) {
    whileEventsRun = [this] {
        window.given.records.clear();
        definition().iProcessMP = 0;
        definition().sCNSExecutable = "other.exe";
    };
    window.given.records = {"a.met", "b.met"};
    execute();
    ASSERT_THAT(interpreter.started, SizeIs(4));
    EXPECT_THAT(interpreter.started.at(2).content, testing::HasSubstr("C:\\app\\cns.exe"));
    EXPECT_EQ(window.status, "Done!");
}

TEST_F(InteractiveRuns, An_output_folder_that_goes_in_mid_run_is_left_out_from_then_on) {
    int started = 0;
    interpreter.run = [&](const FakeCommandInterpreter::Started&) {
        world.write(marker, "");
        if (++started == 2) {
            faulty.failAlways(FileOperation::CanListFolder,
                              RunTimeError(ErrorNumber::DeviceUnavailable));
        }
    };
    execute();
    EXPECT_THAT(interpreter.started.at(1).content, testing::HasSubstr(" -e \"D:\\out\\a.err\" "));
    EXPECT_THAT(interpreter.started.at(3).content,
                testing::HasSubstr("call \"C:\\app\\mp.exe\" -l en \"D:\\cns\\b.cns\"\r\n"));
    EXPECT_EQ(window.status, "Done!");
}

// Cancelling, in each place where the run looks.

TEST_F(InteractiveRuns, A_cancel_while_a_tool_runs_leaves_it_to_itself_within_two_seconds) {
    toolsEnd = false;
    double cancelledAt = 0;
    whileEventsRun = [&] {
        if (clock.steady >= 1004 && cancelledAt == 0) {
            cancelledAt = clock.steady;
            run->cancel();
        }
    };
    execute();
    EXPECT_GT(cancelledAt, 0);
    EXPECT_LE(clock.steady - cancelledAt, 2);
    // The status stays that of the tool.
    EXPECT_THAT(statuses(), ElementsAre("", "Processing a.met...", "CNS - Processing a.met..."));
    EXPECT_THAT(interpreter.started, SizeIs(1));
    expectCleanedUp();
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(InteractiveRuns, A_cancel_between_the_tools_keeps_MP_from_being_started) {
    whileEventsRun = [this] {
        if (world.exists(marker)) { // CNS is done
            run->cancel();
        }
    };
    execute();
    EXPECT_THAT(interpreter.started, SizeIs(1));
    EXPECT_EQ(window.status, "CNS - Processing a.met...");
    expectCleanedUp();
}

TEST_F(InteractiveRuns, A_cancel_between_two_records_keeps_the_status_of_the_first) {
    whileEventsRun = [this] {
        if (window.progress.size() == 2) {
            run->cancel();
        }
    };
    execute();
    EXPECT_THAT(interpreter.started, SizeIs(2));
    EXPECT_EQ(window.status, "MP - Processing a.cns...");
    expectCleanedUp();
}

TEST_F(InteractiveRuns, A_cancel_behind_the_last_record_is_no_done) {
    window.given.records = {"a.met"};
    whileEventsRun = [this] {
        if (window.progress.size() == 2) {
            run->cancel();
        }
    };
    execute();
    EXPECT_EQ(window.status, "MP - Processing a.cns...");
}

TEST_F(InteractiveRuns, A_cancel_before_the_first_tool_starts_none) {
    whileEventsRun = [this] { run->cancel(); };
    execute();
    EXPECT_THAT(interpreter.started, IsEmpty());
    EXPECT_THAT(statuses(), ElementsAre(""));
    expectCleanedUp();
}

TEST_F(InteractiveRuns, A_cancel_while_the_batch_is_being_made_ready_starts_no_tool) {
    whileEventsRun = [this] {
        if (window.status == "Processing a.met...") {
            run->cancel();
        }
    };
    execute();
    EXPECT_THAT(interpreter.started, IsEmpty());
    EXPECT_EQ(window.status, "CNS - Processing a.met..."); // which was to come next
    EXPECT_THAT(entries("create "), IsEmpty());
    expectCleanedUp();
}

TEST_F(InteractiveRuns, A_cancelled_MP_converts_no_links) {
    givePages();
    whileEventsRun = [this] {
        if (interpreter.started.size() == 2) {
            run->cancel();
        }
    };
    execute();
    EXPECT_THAT(entries("rewrite "), IsEmpty());
}

// There it is looked at between the pauses only.
TEST_F(InteractiveRuns, A_cancel_between_writing_a_batch_and_its_start_still_starts_that_one) {
    whileEventsRun = [this] {
        if (world.exists(batch) && interpreter.started.empty()) {
            run->cancel();
        }
    };
    execute();
    EXPECT_THAT(interpreter.started, SizeIs(1));
    EXPECT_EQ(window.status, "CNS - Processing a.met...");
    expectCleanedUp();
}

// Closing.

TEST_F(InteractiveRuns, Closing_while_a_tool_runs_leaves_nothing_at_once) {
    toolsEnd = false;
    definition().bCommandLineLogging = true;
    definition().sCommandLineLogFile = "log.txt";
    bool closed = false;
    whileEventsRun = [&] {
        if (clock.steady >= 1003 && !closed) {
            closed = true;
            run->close();
            EXPECT_FALSE(world.exists(batch));
            EXPECT_EQ(files.count(FileOperation::Close, R"(D:\in\log.txt)"), 1);
        }
    };
    execute();
    EXPECT_TRUE(closed);
    EXPECT_EQ(clock.steady, 1003); // nobody waits any longer
    EXPECT_THAT(interpreter.started, SizeIs(1));
    expectCleanedUp();
    EXPECT_THAT(desktop.messages, IsEmpty());
}

// Of all moments: each time that events run, in turn.
TEST_F(InteractiveRuns, Closing_at_any_moment_ends_it_without_a_word) {
    window.given.records = {"a.met"};
    execute();
    const int moments = events.timesRun;
    ASSERT_GT(moments, 20);
    definition().bCommandLineLogging = true;
    definition().sCommandLineLogFile = "log.txt";
    for (int moment = 1; moment <= moments; ++moment) {
        journal.clear();
        interpreter.started.clear();
        events.timesRun = 0;
        std::size_t startedBefore = 99;
        whileEventsRun = [&] {
            if (events.timesRun == moment) {
                startedBefore = interpreter.started.size();
                run->close();
            }
        };
        execute();
        EXPECT_THAT(desktop.messages, IsEmpty()) << moment;
        EXPECT_EQ(interpreter.started.size(), startedBefore) << moment;
        expectCleanedUp();
    }
}

} // namespace
} // namespace tarnwick
