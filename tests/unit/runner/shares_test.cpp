// Several shares, and runs over all records, in one state folder.

#include "platform/run_time_error.hpp"
#include "runner/state_logs.hpp"
#include "support/eventually.hpp"
#include "unit/runner/runner_world.hpp"

#include <gmock/gmock.h>

#include <filesystem>
#include <thread>

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class Shares : public testing::Test {
  protected:
    Shares() {
        for (int record = 0; record < 20; ++record) {
            machine_.writeRecord("r" + std::to_string(record) + ".met");
        }
    }

    ExitStatus run(std::optional<Share> share) {
        machine_.processes.forget();
        machine_.terminal.output.clear();
        machine_.terminal.error.clear();
        machine_.request.job.share = share;
        return machine_.run();
    }
    ExitStatus run(std::uint32_t number, std::uint32_t count) {
        return run(Share{.number = number, .count = count});
    }
    std::string dryRun(std::optional<Share> share = {}) {
        machine_.request.dryRun = true;
        EXPECT_EQ(run(share), ExitStatus::Done);
        machine_.request.dryRun = false;
        return machine_.terminal.output;
    }
    [[nodiscard]] std::size_t calls() const { return machine_.processes.calls().size(); }
    [[nodiscard]] std::string read(const std::string& name) const {
        return machine_.world.read(state + name);
    }
    void write(const std::string& name, std::string_view text) {
        machine_.world.write(state + name, text);
    }
    // All are to run, and the runner is killed when its first tool has just begun.
    void runAndBeKilled(std::optional<Share> share) {
        const auto act = machine_.processes.act;
        machine_.processes.act = [](const ToolCall&) { return toolEnd(ToolEnd::Kind::Halted); };
        machine_.request.settings.all = true;
        machine_.request.settings.keepPartial = true; // what is there stays in any case
        EXPECT_EQ(run(share), ExitStatus::SomeFailed);
        machine_.request.settings = {};
        machine_.processes.act = act;
        const std::string log = read(logNameOf(share));
        const auto begun = log.find("\nbegun\t", log.rfind("\n\nrun\t"));
        write(logNameOf(share), log.substr(0, log.find('\n', begun + 1) + 1));
    }

    const std::string state = R"(C:\job\night.state\)";
    RunnerWorld machine_;
};

TEST_F(Shares, Make_every_record_once_and_each_writes_its_own_log) {
    std::size_t made = 0;
    for (std::uint32_t number = 1; number <= 3; ++number) {
        EXPECT_EQ(run(number, 3), ExitStatus::Done) << machine_.terminal.error;
        made += calls();
        EXPECT_THAT(read("share-" + std::to_string(number) + "-of-3.log"), HasSubstr("made\t1\t"));
    }
    EXPECT_EQ(made, 20U);
    EXPECT_FALSE(machine_.world.exists(state + "run.log"));
}

TEST_F(Shares, What_one_has_made_is_up_to_date_for_all_whatever_their_number_was) {
    EXPECT_EQ(run(1, 2), ExitStatus::Done);
    const auto half = calls();
    EXPECT_EQ(run(2, 2), ExitStatus::Done);
    EXPECT_EQ(half + calls(), 20U);
    for (std::uint32_t number = 1; number <= 5; ++number) {
        EXPECT_EQ(run(number, 5), ExitStatus::Done);
        EXPECT_EQ(calls(), 0U);
    }
    EXPECT_EQ(run(std::nullopt), ExitStatus::Done);
    EXPECT_EQ(calls(), 0U);
    EXPECT_THAT(machine_.terminal.output, HasSubstr("0 made, 0 failed, 20 up to date"));
}

TEST_F(Shares, What_a_run_over_all_records_has_made_is_up_to_date_for_them) {
    EXPECT_EQ(run(std::nullopt), ExitStatus::Done);
    EXPECT_EQ(run(2, 3), ExitStatus::Done);
    EXPECT_EQ(calls(), 0U);
}

TEST_F(Shares, A_new_record_moves_none) {
    const std::string before = dryRun(Share{.number = 1, .count = 4});
    for (int record = 20; record < 60; ++record) {
        machine_.writeRecord("r" + std::to_string(record) + ".met");
    }
    const std::string after = dryRun(Share{.number = 1, .count = 4});
    for (std::size_t at = 0; at < before.size(); at = before.find('\n', at) + 1) {
        EXPECT_THAT(after, HasSubstr(before.substr(at, before.find('\n', at) + 1 - at)));
    }
}

// Of several that tell of a record, the one that is true counts.
TEST_F(Shares, A_log_that_is_no_longer_true_does_not_spoil_one_that_is) {
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    machine_.writeRecord("r7.met", "another text");
    EXPECT_EQ(run(std::nullopt), ExitStatus::Done);
    EXPECT_EQ(calls(), 1U);
    for (std::uint32_t number = 1; number <= 2; ++number) {
        EXPECT_EQ(run(number, 2), ExitStatus::Done);
        EXPECT_EQ(calls(), 0U);
    }
    EXPECT_EQ(run(1, 1), ExitStatus::Done); // whose own log tells of the old record
    EXPECT_EQ(calls(), 0U);
    machine_.makeOlder(R"(C:\out\r7.html)", 1);
    EXPECT_THAT(dryRun(), HasSubstr("run     r7.met  html was changed\n"));
}

// Two runs, each true of one product, make no record that is up to date.
TEST_F(Shares, One_run_must_have_made_all_products) {
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    const auto host = machine_.world.files().hostPath(R"(C:\out\r7.html)");
    const auto first = std::filesystem::last_write_time(host);
    machine_.makeOlder(R"(C:\out\r7.err)", 5);
    EXPECT_EQ(run(std::nullopt), ExitStatus::Done);
    EXPECT_EQ(calls(), 1U);
    std::filesystem::last_write_time(host, first);
    EXPECT_THAT(dryRun(), HasSubstr("run     r7.met  "));
}

TEST_F(Shares, A_failure_elsewhere_does_not_spoil_what_is_there) {
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    machine_.processes.act = [](const ToolCall&) { return exited(3, "no"); };
    machine_.request.settings.all = true;
    machine_.request.settings.keepPartial = true; // what is there stays in any case
    EXPECT_EQ(run(std::nullopt), ExitStatus::SomeFailed);
    machine_.request.settings = {};
    EXPECT_THAT(dryRun(Share{.number = 1, .count = 1}), Not(HasSubstr("run ")));
}

TEST_F(Shares, A_record_that_failed_elsewhere_runs_again) {
    machine_.processes.act = [](const ToolCall&) { return exited(3, "no"); };
    EXPECT_EQ(run(1, 1), ExitStatus::SomeFailed);
    EXPECT_THAT(dryRun(), HasSubstr("run     r0.met  failed last time\n"));
}

TEST_F(Shares, A_record_that_a_killed_run_had_in_work_runs_once_more_and_not_for_ever) {
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    runAndBeKilled(std::nullopt);
    const std::string said = dryRun(Share{.number = 1, .count = 1});
    EXPECT_THAT(said, HasSubstr("was in work when its last run ended"));
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    EXPECT_EQ(calls(), 1U);
    EXPECT_THAT(read("share-1-of-1.log"), HasSubstr("\nsettled\t2\tr0.met\trun.log\t1\t"));
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    EXPECT_EQ(calls(), 0U);
    EXPECT_EQ(run(std::nullopt), ExitStatus::Done);
    EXPECT_EQ(calls(), 0U);
    EXPECT_EQ(run(2, 7), ExitStatus::Done);
    EXPECT_EQ(calls(), 0U);
}

TEST_F(Shares, What_was_settled_once_is_not_when_it_happens_again) {
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    runAndBeKilled(std::nullopt);
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    runAndBeKilled(std::nullopt);
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    EXPECT_EQ(calls(), 1U);
}

TEST_F(Shares, A_record_that_fails_settles_nothing) {
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    runAndBeKilled(std::nullopt);
    const auto act = machine_.processes.act;
    machine_.processes.act = [](const ToolCall&) { return exited(3, "no"); };
    EXPECT_EQ(run(1, 1), ExitStatus::SomeFailed);
    machine_.processes.act = act;
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    EXPECT_EQ(calls(), 1U);
}

TEST_F(Shares, The_torn_end_of_a_log_that_is_being_written_is_dropped_without_a_word) {
    EXPECT_EQ(run(1, 1), ExitStatus::Done);
    const std::string log = read("share-1-of-1.log");
    write("share-1-of-1.log", log.substr(0, log.size() - 5));
    dryRun();
    EXPECT_EQ(machine_.terminal.error,
              "tarnwick-run: The last line of share-1-of-1.log was cut short; it is dropped.\n");
    auto lock = machine_.locks.tryLock(state + "share-1-of-1.lock", "process 2 on HERE");
    dryRun();
    EXPECT_EQ(machine_.terminal.error, "");
    lock.reset();
    write("share-1-of-1.lock", "process 2 on ELSEWHERE, since noon\nsign of life 3\n");
    dryRun();
    EXPECT_EQ(machine_.terminal.error, "");
}

TEST_F(Shares, A_log_of_a_newer_version_is_refused_whoever_wrote_it) {
    EXPECT_EQ(run(std::nullopt), ExitStatus::Done);
    write("share-1-of-9.log", "tarnwick-run log 2\n");
    EXPECT_EQ(run(std::nullopt), ExitStatus::NothingRun);
    EXPECT_THAT(machine_.terminal.error, HasSubstr("newer version"));
}

TEST_F(Shares, Two_records_that_would_make_one_file_are_refused_whichever_shares_they_are_in) {
    machine_.definition.sInputExtensions = "*.met;*.txt";
    for (int record = 0; record < 20; ++record) {
        machine_.writeRecord("r" + std::to_string(record) + ".txt");
    }
    for (std::uint32_t number = 1; number <= 2; ++number) {
        EXPECT_EQ(run(number, 2), ExitStatus::SomeFailed);
        EXPECT_EQ(calls(), 0U);
    }
}

TEST_F(Shares, Are_refused_where_the_outputs_are_not_known) {
    machine_.world.write(R"(C:\job\mp.cfg)", "output\r\n");
    machine_.definition.bUseConfigFile = checked;
    machine_.definition.sConfigFile = R"(C:\job\mp.cfg)";
    EXPECT_EQ(run(1, 2), ExitStatus::NothingRun);
    EXPECT_THAT(machine_.terminal.error, HasSubstr("Such records cannot be shared out"));
    EXPECT_EQ(calls(), 0U);
}

// --- who may be at work at once ---

class SharesAtWork : public Shares {
  protected:
    [[nodiscard]] std::unique_ptr<HeldLock> hold(const std::string& lock) {
        machine_.world.makeFolder(R"(C:\job\night.state)");
        return machine_.locks.tryLock(state + lock,
                                      "process 7 on NEXT, since noon\nsign of life 1\n");
    }
    void expectRefused(std::optional<Share> share, const std::string& sentence) {
        EXPECT_EQ(run(share), ExitStatus::NothingRun);
        EXPECT_EQ(machine_.terminal.error, "tarnwick-run: " + sentence + "\n");
        EXPECT_EQ(calls(), 0U);
    }
};

TEST_F(SharesAtWork, A_second_run_of_one_share_refuses_and_says_who_is_at_work) {
    const auto held = hold("share-2-of-3.lock");
    expectRefused(
        Share{.number = 2, .count = 3},
        "Another tarnwick-run is at work on share 2 of 3 of this definition: process 7 on "
        "NEXT, since noon.");
    EXPECT_EQ(run(1, 3), ExitStatus::Done);
}

TEST_F(SharesAtWork, A_run_over_all_records_and_one_of_a_share_refuse_each_other) {
    auto held = hold("share-2-of-3.lock");
    expectRefused({}, "Another tarnwick-run is at work on share 2 of 3 of this definition, so that "
                      "the same records would be run twice: process 7 on NEXT, since noon.");
    held.reset();
    write("share-2-of-3.lock", "");
    held = hold("lock");
    expectRefused(Share{.number = 2, .count = 3},
                  "Another tarnwick-run is at work on all records of this definition, so that the "
                  "same records would be run twice: process 7 on NEXT, since noon.");
}

TEST_F(SharesAtWork, Shares_of_different_numbers_refuse_each_other) {
    const auto held = hold("share-2-of-3.lock");
    expectRefused(Share{.number = 1, .count = 4},
                  "Another tarnwick-run is at work on share 2 of 3 of this definition, so that the "
                  "same records would be run twice: process 7 on NEXT, since noon.");
}

TEST_F(SharesAtWork, Whoever_refuses_or_ends_leaves_no_sign_of_life) {
    const auto held = hold("share-2-of-3.lock");
    EXPECT_EQ(run(std::nullopt), ExitStatus::NothingRun);
    EXPECT_EQ(read("lock"), "");
    EXPECT_EQ(run(1, 3), ExitStatus::Done);
    EXPECT_EQ(read("share-1-of-3.lock"), "");
}

// The next are about file systems that carry no locks from machine to machine.

TEST_F(SharesAtWork, Who_was_killed_on_another_machine_shows_no_life_and_is_followed) {
    write("share-2-of-3.lock", "process 7 on NEXT, since noon\nsign of life 3\n");
    machine_.request.lockTimes.watch = 0.1;
    EXPECT_EQ(run(2, 3), ExitStatus::Done);
    EXPECT_THAT(machine_.terminal.error,
                StartsWith("tarnwick-run: Waiting whether another tarnwick-run is still at work: "
                           "process 7 on NEXT, since noon.\n"));
    EXPECT_NE(calls(), 0U);
    EXPECT_EQ(read("share-2-of-3.lock"), "");
}

TEST_F(SharesAtWork, Who_was_killed_on_this_machine_is_not_waited_for) {
    write("share-2-of-3.lock", "process 7 on HERE, since noon\nsign of life 3\n");
    machine_.request.lockTimes.watch = 1e9;
    EXPECT_EQ(run(2, 3), ExitStatus::Done);
    EXPECT_EQ(machine_.terminal.error, "");
}

// Somebody whose lock we do not see, but who changes what he has said.
class Rival {
  public:
    Rival(RunnerWorld& machine, std::string path) {
        living_ = std::jthread([&machine, path = std::move(path)](const std::stop_token& stop) {
            for (int sign = 1; !stop.stop_requested(); ++sign) {
                RunnerWorld::overwriteHost(machine.world.files().hostPath(path),
                                           "process 7 on NEXT, since noon\nsign of life " +
                                               std::to_string(sign) + "\n");
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
        });
    }

  private:
    std::jthread living_;
};

TEST_F(SharesAtWork, Who_shows_life_on_another_machine_is_at_work) {
    write("share-2-of-3.lock", "process 7 on NEXT, since noon\nsign of life 0\n");
    const Rival rival(machine_, state + "share-2-of-3.lock");
    machine_.request.lockTimes.watch = 3600;
    EXPECT_EQ(run(2, 3), ExitStatus::NothingRun);
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("Another tarnwick-run is at work on share 2 of 3 of this definition: "
                          "process 7 on NEXT, since noon.\n"));
    EXPECT_EQ(run(std::nullopt), ExitStatus::NothingRun);
    EXPECT_EQ(calls(), 0U);
}

TEST_F(SharesAtWork, Whose_lock_is_taken_from_another_machine_ends) {
    machine_.request.lockTimes.beat = 0.01;
    machine_.request.settings.notice = 1e9; // which counts for the system's order alone
    const auto lock = machine_.world.drivesRoot() + "/c/job/night.state/share-2-of-3.lock";
    machine_.processes.act = [&](const ToolCall&) {
        EXPECT_TRUE(eventually([&] { // as often as a sign of life has just replaced it
            RunnerWorld::overwriteHost(lock, "process 7 on NEXT, since noon\nsign of life 0\n");
            return machine_.processes.isHalted();
        }));
        return toolEnd(ToolEnd::Kind::Halted);
    };
    EXPECT_EQ(run(2, 3), ExitStatus::Terminated);
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("Another tarnwick-run has begun the same, so that this one has ended: "
                          "process 7 on NEXT, since noon.\n"));
    EXPECT_THAT(read("share-2-of-3.lock"), StartsWith("process 7 on NEXT"));
}

TEST_F(SharesAtWork, A_run_gives_signs_of_life) {
    machine_.request.lockTimes.beat = 0.01;
    machine_.processes.act = [&](const ToolCall& call) {
        EXPECT_TRUE(eventually([&] {
            const std::string said = machine_.locks.holderOf(state + "lock");
            return said.starts_with("process 1 on HERE\nsign of life ") && !said.ends_with(" 1\n");
        }));
        return machine_.work(call);
    };
    EXPECT_EQ(run(std::nullopt), ExitStatus::Done);
}

// --- what a report asks ---

TEST_F(SharesAtWork, All_logs_are_told_with_who_writes_them) {
    EXPECT_THAT(stateLogs(*machine_.files, R"(C:\job\night.state)"), IsEmpty());
    EXPECT_EQ(run(10, 11), ExitStatus::Done);
    EXPECT_EQ(run(2, 11), ExitStatus::Done);
    EXPECT_EQ(run(1, 3), ExitStatus::Done);
    EXPECT_EQ(run(std::nullopt), ExitStatus::Done);
    write("share-1-of-3.messages.log", "");
    const auto logs = stateLogs(*machine_.files, R"(C:\job\night.state)");
    EXPECT_EQ(logs, (std::vector<StateLog>{
                        {.name = "run.log", .share = {}},
                        {.name = "share-1-of-3.log", .share = Share{.number = 1, .count = 3}},
                        {.name = "share-2-of-11.log", .share = Share{.number = 2, .count = 11}},
                        {.name = "share-10-of-11.log", .share = Share{.number = 10, .count = 11}},
                    }));
    const auto held = hold("share-2-of-11.lock");
    write("share-10-of-11.lock", "process 8 on THIRD, since noon\nsign of life 2\n");
    write("share-1-of-3.lock", "process 9 on HERE, since noon\nsign of life 2\n");
    const auto writer = [&](std::size_t log) {
        return writerOf(machine_.locks, R"(C:\job\night.state)", logs[log].share,
                        "process 1 on HERE");
    };
    using enum LogWriter::Kind;
    EXPECT_EQ(writer(0), LogWriter());
    EXPECT_EQ(writer(1), LogWriter());
    EXPECT_EQ(writer(2), (LogWriter{.kind = AtWork, .holder = "process 7 on NEXT, since noon"}));
    EXPECT_EQ(writer(3),
              (LogWriter{.kind = PerhapsAtWork, .holder = "process 8 on THIRD, since noon"}));
}

} // namespace
} // namespace tarnwick
