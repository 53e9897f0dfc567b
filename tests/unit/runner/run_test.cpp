#include "platform/run_time_error.hpp"
#include "runner/written_files.hpp"
#include "support/forwarding_files.hpp"
#include "support/outputs.hpp"
#include "unit/runner/runner_world.hpp"

#include <gmock/gmock.h>

#include <atomic>
#include <condition_variable>
#include <thread>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class RunOfRecords : public testing::Test {
  protected:
    // What one record that fails is told to have done.
    std::string whyFailed() {
        machine_.writeRecord("a.met");
        EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
        EXPECT_THAT(machine_.terminal.output, HasSubstr("0 made, 1 failed"));
        return machine_.terminal.error;
    }
    void act(std::function<ToolEnd(const ToolCall&)> act) {
        machine_.processes.act = std::move(act);
    }

    RunnerWorld machine_;
};

TEST_F(RunOfRecords, Starts_the_tools_in_their_order_by_lists_of_arguments) {
    machine_.definition.iProcessCNS = checked;
    machine_.writeRecord("100% & more!.met");
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    const std::string root = machine_.world.drivesRoot() + "/c/";
    const auto calls = machine_.processes.calls();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].program, root + "tools/cns.exe");
    EXPECT_THAT(calls[0].arguments, ElementsAre("-l", "en", "-o", root + "out/100% & more!.cns",
                                                root + "in/100% & more!.met"));
    EXPECT_EQ(calls[0].folder, root + "in");
    EXPECT_EQ(calls[1].program, root + "tools/mp.exe");
    EXPECT_THAT(calls[1].arguments,
                ElementsAre("-l", "en", "-e", root + "out/100% & more!.err", "-h",
                            root + "out/100% & more!.html", root + "out/100% & more!.cns"));
}

TEST_F(RunOfRecords, MP_does_not_follow_a_CNS_that_failed) {
    machine_.definition.iProcessCNS = checked;
    act([](const ToolCall&) { return exited(3, "reading\nno such element\n\n"); });
    EXPECT_THAT(whyFailed(), HasSubstr("FAILED a.met: CNS ended with status 3: no such element\n"));
    EXPECT_EQ(machine_.processes.calls().size(), 1U);
}

TEST_F(RunOfRecords, A_signal_a_time_out_and_a_start_that_fails_are_told) {
    for (const auto& [end, sentence] : std::vector<std::pair<ToolEnd, std::string>>{
             {toolEnd(ToolEnd::Kind::Signalled, 11), "MP was ended by signal 11"},
             {toolEnd(ToolEnd::Kind::TimedOut), "MP took longer than 90 s and was ended"},
             {toolEnd(ToolEnd::Kind::NotStarted, 2),
              "MP could not be started: No such file or directory"}}) {
        machine_.request.settings.timeLimit = 90;
        act([&](const ToolCall&) { return end; });
        EXPECT_THAT(whyFailed(), HasSubstr("FAILED a.met: " + sentence + "\n"));
    }
}

TEST_F(RunOfRecords, A_product_that_was_not_made_fails_the_record) {
    act([&](const ToolCall& call) {
        RunnerWorld::writeHost(call.arguments[3], "only the first");
        return exited(0);
    });
    EXPECT_THAT(whyFailed(), HasSubstr("MP ended with status 0, but did not make \"a.html\"\n"));
    EXPECT_FALSE(machine_.world.exists(R"(C:\out\a.err)")); // nobody takes it for whole
}

TEST_F(RunOfRecords, A_product_that_was_there_before_and_was_not_written_fails_the_record) {
    machine_.world.write(R"(C:\out\a.html)", "last year's");
    machine_.makeOlder(R"(C:\out\a.html)", 60);
    act([&](const ToolCall& call) {
        RunnerWorld::writeHost(call.arguments[3], "only the first");
        return exited(0);
    });
    EXPECT_THAT(whyFailed(), HasSubstr("MP ended with status 0, but did not write \"a.html\": the "
                                       "one that is there is older\n"));
    EXPECT_EQ(machine_.world.read(R"(C:\out\a.html)"), "last year's");
    EXPECT_FALSE(machine_.world.exists(R"(C:\out\a.err)"));
}

// Written again with the same content within what the file system's times can tell apart.
TEST_F(RunOfRecords, Coarse_times_do_not_make_a_failure_of_a_success) {
    class CoarseStamps final : public FileStamps {
      public:
        explicit CoarseStamps(const FileStamps& stamps) : stamps_(stamps) {}
        [[nodiscard]] std::optional<Stamp> stampOf(std::string_view path) const override {
            auto stamp = stamps_.stampOf(path);
            if (stamp) {
                stamp->time -= stamp->time % 2'000'000'000;
            }
            return stamp;
        }
        [[nodiscard]] StampedListing listStamped(std::string_view folder) const override {
            return stamps_.listStamped(folder);
        }

      private:
        const FileStamps& stamps_;
    };
    const CoarseStamps coarse(machine_.stamps);
    KnownFolders folders(machine_.world.files());
    const Products products(machine_.definition, folders);
    const WrittenFiles written(products, machine_.world.files(), coarse, machine_.clock,
                               "probe.tmp");
    machine_.world.write(R"(C:\out\a.err)", "same");
    const auto before = coarse.stampOf(R"(C:\out\a.err)");
    EXPECT_TRUE(written.mayBeWritten(0, before, *before));
    const Stamp old{.size = 4, .time = before->time - 10'000'000'000};
    EXPECT_FALSE(written.mayBeWritten(0, old, old));
    const Stamp ofTheFuture{.size = 4, .time = before->time + 10'000'000'000};
    EXPECT_FALSE(written.mayBeWritten(0, ofTheFuture, ofTheFuture)); // a clock was set back
    machine_.clock.now += 3600; // the file has been there for an hour
    EXPECT_FALSE(written.mayBeWritten(0, before, *before));
    EXPECT_TRUE(written.mayBeWritten(0, std::nullopt, *before));
}

TEST_F(RunOfRecords, Other_statuses_can_be_accepted) {
    machine_.request.settings.accept = {0, 1};
    machine_.writeRecord("a.met");
    act([&](const ToolCall& call) {
        const ToolEnd end = machine_.work(call);
        return exited(end.code + 1);
    });
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
}

TEST_F(RunOfRecords, What_a_failed_call_leaves_can_be_kept) {
    machine_.request.settings.keepPartial = true;
    act([&](const ToolCall& call) {
        static_cast<void>(machine_.work(call));
        return exited(1);
    });
    static_cast<void>(whyFailed());
    EXPECT_EQ(machine_.world.read(R"(C:\out\a.err)"), "-e of a.met");
}

TEST_F(RunOfRecords, A_record_that_fails_is_tried_again) {
    machine_.request.settings.retries = 2;
    machine_.writeRecord("a.met");
    std::atomic<int> attempts = 0;
    act([&](const ToolCall& call) { return ++attempts < 3 ? exited(1) : machine_.work(call); });
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    EXPECT_EQ(attempts, 3);
}

TEST_F(RunOfRecords, A_record_that_vanishes_while_it_waits_fails) {
    for (const char* const name : {"a.met", "b.met", "c.met"}) {
        machine_.writeRecord(name);
    }
    machine_.request.settings.jobs = 1;
    act([&](const ToolCall& call) {
        if (call.arguments.back().ends_with("a.met")) {
            machine_.world.files().remove(R"(C:\in\c.met)");
        }
        return machine_.work(call);
    });
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("FAILED c.met: the record is no longer there\n"));
    EXPECT_THAT(machine_.terminal.output, HasSubstr("2 made, 1 failed"));
}

TEST_F(RunOfRecords, A_failed_record_in_place_is_not_removed) {
    machine_.definition.iProcessCNS = checked;
    machine_.definition.sCNSOutputFolder = R"(C:\in)";
    machine_.definition.sCNSOutputExtension = ".met";
    machine_.request.job.inPlace = true;
    act([&](const ToolCall& call) {
        static_cast<void>(machine_.work(call));
        return exited(1);
    });
    static_cast<void>(whyFailed());
    EXPECT_TRUE(machine_.world.exists(R"(C:\in\a.met)"));
}

TEST_F(RunOfRecords, As_many_at_once_as_there_are_slots) {
    constexpr int slots = 4;
    machine_.request.settings.jobs = slots;
    for (int record = 0; record < 40; ++record) {
        machine_.writeRecord("r" + std::to_string(record) + ".met");
    }
    std::mutex mutex;
    std::condition_variable changed;
    int working = 0;
    int most = 0;
    int seen = 0;
    act([&](const ToolCall& call) {
        std::unique_lock lock(mutex);
        most = std::max(most, ++working);
        ++seen;
        changed.notify_all();
        // The first ones wait for each other: that many are at work at the same time.
        changed.wait(lock, [&] { return seen >= slots; });
        --working;
        return machine_.work(call);
    });
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    EXPECT_EQ(most, slots);
    EXPECT_EQ(seen, 40);
}

TEST_F(RunOfRecords, Nothing_more_is_begun_after_so_many_failures) {
    machine_.request.settings.stopAfter = 2;
    machine_.request.settings.jobs = 1;
    for (int record = 0; record < 10; ++record) {
        machine_.writeRecord("r" + std::to_string(record) + ".met");
    }
    act([](const ToolCall&) { return exited(1); });
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    // One more may have been begun by then.
    EXPECT_LE(machine_.processes.calls().size(), 3U);
    EXPECT_THAT(machine_.terminal.error, HasSubstr("so many records have failed"));
    EXPECT_THAT(machine_.terminal.output, HasSubstr("not run"));
}

TEST_F(RunOfRecords, The_first_interruption_lets_running_tools_end) {
    machine_.request.settings.jobs = 1;
    for (int record = 0; record < 10; ++record) {
        machine_.writeRecord("r" + std::to_string(record) + ".met");
    }
    act([&](const ToolCall& call) {
        if (call.arguments.back().ends_with("r0.met")) {
            machine_.interruptions.interrupt(Interruption::Asked);
        }
        return machine_.work(call);
    });
    EXPECT_EQ(machine_.run(), ExitStatus::Interrupted);
    EXPECT_FALSE(machine_.processes.isHalted());
    EXPECT_TRUE(machine_.world.exists(R"(C:\out\r0.html)"));
    EXPECT_FALSE(machine_.world.exists(R"(C:\out\r9.html)"));
    EXPECT_THAT(machine_.terminal.error, HasSubstr("the running tools may end"));
    act([&](const ToolCall& call) { return machine_.work(call); });
    EXPECT_EQ(machine_.run(), ExitStatus::Done); // it goes on where it was
    EXPECT_EQ(machine_.processes.calls().size(), 10U);
}

TEST_F(RunOfRecords, The_second_interruption_and_an_order_end_the_tools) {
    for (const bool ordered : {false, true}) {
        RunnerWorld machine;
        machine.request.settings.jobs = 1;
        machine.writeRecord("a.met");
        machine.writeRecord("b.met");
        machine.processes.act = [&](const ToolCall& call) {
            static_cast<void>(machine.work(call)); // half of its work
            if (!ordered) {
                machine.interruptions.interrupt(Interruption::Asked);
            }
            machine.interruptions.interrupt(ordered ? Interruption::Ordered : Interruption::Asked);
            while (!machine.processes.isHalted()) {
                std::this_thread::yield();
            }
            return toolEnd(ToolEnd::Kind::Halted);
        };
        EXPECT_EQ(machine.run(), ordered ? ExitStatus::Terminated : ExitStatus::Interrupted);
        EXPECT_FALSE(machine.world.exists(R"(C:\out\a.html)")); // what was half is cleared away
        EXPECT_THAT(machine.terminal.error, HasSubstr("Ending the running tools"));
        EXPECT_THAT(machine.terminal.output,
                    HasSubstr("0 made, 0 failed, 0 up to date, 2 not run"));
        EXPECT_THAT(machine.log(), Not(HasSubstr("failed")));
    }
}

TEST_F(RunOfRecords, An_order_with_notice_lets_running_tools_end) {
    machine_.request.settings.jobs = 1;
    machine_.request.settings.notice = 3600;
    for (int record = 0; record < 10; ++record) {
        machine_.writeRecord("r" + std::to_string(record) + ".met");
    }
    act([&](const ToolCall& call) {
        if (call.arguments.back().ends_with("r0.met")) {
            machine_.interruptions.interrupt(Interruption::Ordered);
        }
        return machine_.work(call);
    });
    EXPECT_EQ(machine_.run(), ExitStatus::Terminated);
    EXPECT_FALSE(machine_.processes.isHalted());
    EXPECT_TRUE(machine_.world.exists(R"(C:\out\r0.html)"));
    EXPECT_FALSE(machine_.world.exists(R"(C:\out\r9.html)"));
    EXPECT_EQ(machine_.terminal.error,
              "tarnwick-run: Nothing more is begun; the running tools may end while there is "
              "time.\n");
    act([&](const ToolCall& call) { return machine_.work(call); });
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    EXPECT_EQ(machine_.processes.calls().size(), 10U);
}

// Engines send it to all of a job at once; whoever of both is heard of first.
TEST_F(RunOfRecords, A_tool_that_is_asked_to_end_with_the_runner_has_not_failed) {
    for (const bool toolIsFirst : {false, true}) {
        RunnerWorld machine;
        machine.request.settings.notice = 3600;
        machine.request.settings.retries = 3;
        machine.request.settings.jobs = 1;
        machine.writeRecord("a.met");
        std::atomic<bool> hasEnded = false;
        machine.clock.asked = [&] { // when the tool's end has been heard of
            if (hasEnded.exchange(false)) {
                machine.interruptions.interrupt(Interruption::Ordered);
            }
        };
        machine.processes.act = [&](const ToolCall&) {
            if (toolIsFirst) {
                hasEnded = true;
            } else {
                machine.interruptions.interrupt(Interruption::Ordered);
            }
            return toolEnd(ToolEnd::Kind::Signalled, 15);
        };
        EXPECT_EQ(machine.run(), ExitStatus::Terminated);
        EXPECT_EQ(machine.processes.calls().size(), 1U);
        EXPECT_THAT(machine.terminal.output,
                    HasSubstr("0 made, 0 failed, 0 up to date, 1 not run"));
        EXPECT_THAT(machine.log(), Not(HasSubstr("failed")));
    }
}

TEST_F(RunOfRecords, A_tool_that_somebody_else_asks_to_end_has_failed) {
    act([](const ToolCall&) { return toolEnd(ToolEnd::Kind::Signalled, 15); });
    EXPECT_THAT(whyFailed(), HasSubstr("FAILED a.met: MP was ended by signal 15\n"));
}

TEST_F(RunOfRecords, When_the_time_after_an_order_is_over_the_tools_are_ended) {
    for (const bool again : {false, true}) {
        RunnerWorld machine;
        machine.request.settings.notice = again ? 3600 : 0;
        machine.writeRecord("a.met");
        machine.processes.act = [&](const ToolCall& call) {
            static_cast<void>(machine.work(call));
            machine.interruptions.interrupt(Interruption::Ordered);
            if (again) { // who sends it twice does not wait
                machine.interruptions.interrupt(Interruption::Ordered);
            }
            while (!machine.processes.isHalted()) {
                std::this_thread::yield();
            }
            return toolEnd(ToolEnd::Kind::Halted);
        };
        EXPECT_EQ(machine.run(), ExitStatus::Terminated);
        EXPECT_FALSE(machine.world.exists(R"(C:\out\a.html)"));
        EXPECT_THAT(machine.terminal.error, HasSubstr("while there is time"));
        EXPECT_THAT(machine.terminal.error, HasSubstr("Ending the running tools"));
        EXPECT_THAT(machine.log(), Not(HasSubstr("failed")));
    }
}

TEST_F(RunOfRecords, An_interruption_that_comes_when_the_run_is_over_meets_nobody) {
    machine_.writeRecord("a.met");
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    machine_.interruptions.interrupt(Interruption::Asked); // what heard it is gone
    EXPECT_FALSE(machine_.processes.isHalted());
}

TEST_F(RunOfRecords, A_second_runner_on_the_same_state_says_who_is_at_work) {
    machine_.writeRecord("a.met");
    machine_.world.makeFolder(R"(C:\job\night.state)");
    const auto lock = machine_.locks.tryLock(R"(C:\job\night.state\lock)", "process 7 on NEXT");
    ASSERT_NE(lock, nullptr);
    EXPECT_EQ(machine_.run(), ExitStatus::NothingRun);
    EXPECT_THAT(machine_.terminal.error, HasSubstr("process 7 on NEXT"));
    EXPECT_TRUE(machine_.processes.calls().empty());
}

TEST_F(RunOfRecords, Does_not_start_where_its_state_cannot_be_written) {
    machine_.writeRecord("a.met");
    machine_.request.stateFolder = R"(C:\job\nowhere\night.state)";
    EXPECT_EQ(machine_.run(), ExitStatus::NothingRun);
    EXPECT_TRUE(machine_.processes.calls().empty());
    machine_.world.makeFolder(R"(C:\job\full.state\run.log)"); // a folder is in the log's place
    machine_.request.stateFolder = R"(C:\job\full.state)";
    EXPECT_EQ(machine_.run(), ExitStatus::NothingRun);
    EXPECT_TRUE(machine_.processes.calls().empty());
}

TEST_F(RunOfRecords, All_faults_are_told_at_once_and_nothing_is_started) {
    machine_.definition.sMPExecutable = R"(C:\tools\gone.exe)";
    machine_.definition.iProcessCNS = checked;
    machine_.definition.sCNSExecutable = "";
    machine_.definition.sInputFolder = R"(C:\gone)";
    output(machine_.definition, "Html").sOutputFolder = R"(C:\away)";
    EXPECT_EQ(machine_.run(), ExitStatus::NothingRun);
    EXPECT_EQ(machine_.terminal.error,
              "tarnwick-run: No CNS executable file is named.\n"
              "tarnwick-run: The MP executable file \"C:\\tools\\gone.exe\" does not exist.\n"
              "tarnwick-run: The \"C:\\away\" folder does not exist. Please specify a valid folder "
              "for the output \"Html\" file.\n"
              "tarnwick-run: The input folder \"C:\\gone\" does not exist.\n");
    EXPECT_FALSE(machine_.world.exists(R"(C:\job\night.state)"));
}

TEST_F(RunOfRecords, An_empty_folder_and_a_name_that_fits_nothing_are_faults) {
    EXPECT_EQ(machine_.run(), ExitStatus::NothingRun);
    EXPECT_THAT(machine_.terminal.error, HasSubstr("No files found in folder \"C:\\in\"."));
    machine_.writeRecord("a.met");
    machine_.request.job.records = {"a*", "b*"};
    EXPECT_EQ(machine_.run(), ExitStatus::NothingRun);
    EXPECT_THAT(machine_.terminal.error, HasSubstr("No record is named \"b*\"."));
}

TEST_F(RunOfRecords, Only_the_records_that_are_named_run) {
    for (const char* const name : {"a.met", "b1.met", "b2.met"}) {
        machine_.writeRecord(name);
    }
    machine_.request.job.records = {"B?.met"};
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    EXPECT_FALSE(machine_.world.exists(R"(C:\out\a.html)"));
    EXPECT_TRUE(machine_.world.exists(R"(C:\out\b2.html)"));
}

TEST_F(RunOfRecords, A_name_that_cannot_be_one_on_Windows_is_told_and_not_run) {
    machine_.definition.sInputExtensions = "*";
    for (const char* const name : {"a.met", "con.met"}) {
        RunnerWorld::writeHost(machine_.world.drivesRoot() + "/c/in/" + name, "record");
    }
    RunnerWorld::writeHost(machine_.world.drivesRoot() + "/c/in/b|c.met", "record");
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("FAILED con.met: Windows opens something else under this name\n"));
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("FAILED b|c.met: its name holds a character that no Windows name has\n"));
    EXPECT_THAT(machine_.terminal.output, HasSubstr("1 made, 2 failed"));
}

TEST_F(RunOfRecords, No_record_can_paint_on_the_terminal) {
    machine_.definition.sInputExtensions = "*";
    RunnerWorld::writeHost(machine_.world.drivesRoot() + "/c/in/\x1B[31mred.met", "record");
    machine_.writeRecord("a.met");
    act([](const ToolCall&) { return exited(1, "first\n\x1B]0;title\x07 last\r\n"); });
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.terminal.error, Not(HasSubstr("\x1B")));
    EXPECT_THAT(machine_.terminal.error, HasSubstr("<U+001B>]0;title<U+0007> last\n"));
}

TEST_F(RunOfRecords, Its_links_are_made_relative) {
    machine_.definition.bConvertHyperlinks = true;
    output(machine_.definition, "Html").sOutputFolder = R"(C:\out)";
    machine_.writeRecord("a.met");
    act([&](const ToolCall& call) {
        RunnerWorld::writeHost(call.arguments[3], "errors");
        RunnerWorld::writeHost(call.arguments[5],
                               "<a HREF=\"" + call.arguments[7] + "\">xml</a>\n");
        RunnerWorld::writeHost(call.arguments[7], "<xml/>");
        return exited(0);
    });
    output(machine_.definition, "Xml").bBuild = true;
    machine_.world.makeFolder(R"(C:\xml)");
    output(machine_.definition, "Xml").sOutputFolder = R"(C:\xml)";
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    EXPECT_EQ(machine_.world.read(R"(C:\out\a.html)"), "<a HREF=\"../xml/a.xml\">xml</a>\n");
}

// The disk is full when the log's sixth piece is to be written: the fourth record's line.
class FullLogFiles final : public ForwardingFiles {
  public:
    explicit FullLogFiles(Files& files) : ForwardingFiles(files) {}

    [[nodiscard]] std::unique_ptr<OutputFile> append(std::string_view path) override {
        return std::make_unique<FullFile>(ForwardingFiles::append(path));
    }

  private:
    class FullFile final : public OutputFile {
      public:
        explicit FullFile(std::unique_ptr<OutputFile> file) : file_(std::move(file)) {}
        void write(std::string_view bytes) override {
            if (++pieces_ > 5) {
                throw RunTimeError(ErrorNumber::DiskFull);
            }
            file_->write(bytes);
        }
        void drain() override { file_->drain(); }
        void flush() override { file_->flush(); }
        void close() override { file_->close(); }

      private:
        std::unique_ptr<OutputFile> file_;
        int pieces_ = 0;
    };
};

// What is not in the log would be made again: so nothing more is begun, and all ends in order.
TEST_F(RunOfRecords, A_log_that_cannot_be_written_ends_the_run) {
    machine_.request.settings.jobs = 1;
    for (int record = 0; record < 10; ++record) {
        machine_.writeRecord("r" + std::to_string(record) + ".met");
    }
    FullLogFiles full(machine_.world.files());
    machine_.files = &full;
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("The run was ended, because its log cannot be written: Disk full."));
    EXPECT_LE(machine_.processes.calls().size(), 6U);
    machine_.files = &machine_.world.files();
    machine_.processes.forget();
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    EXPECT_EQ(machine_.processes.calls().size(), 7U); // r3 once more, for nobody knows of it
}

} // namespace
} // namespace tarnwick
