// What the tools say of records, in whole runs.

#include "runner/message_log.hpp"
#include "support/outputs.hpp"
#include "unit/runner/runner_world.hpp"

#include <gmock/gmock.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* messageLog = R"(C:\job\night.state\messages.log)";

class MessagesOfARun : public testing::Test {
  protected:
    // MP's error report says what the record holds.
    MessagesOfARun() {
        machine_.processes.act = [this](const ToolCall& call) {
            const ToolEnd end = machine_.work(call);
            report(call);
            return end;
        };
        machine_.request.settings.jobs = 1;
    }

    void report(const ToolCall& call) const {
        const std::string record = RunnerWorld::lastName(call.arguments.back());
        if (call.arguments[2] == "-e") {
            RunnerWorld::writeHost(call.arguments[3], machine_.world.read(R"(C:\in\)" + record));
        }
    }
    std::vector<MessageLogLine> kept() {
        std::vector<MessageLogLine> lines;
        static_cast<void>(readMessageLog(machine_.world.files(), messageLog,
                                         [&](MessageLogLine& line) { lines.push_back(line); }));
        return lines;
    }
    static MessagesLine said(std::uint32_t run, const char* record,
                             std::vector<ToolMessage> messages) {
        return {.run = run, .record = record, .known = true, .messages = std::move(messages)};
    }
    static MessagesLine unknown(std::uint32_t run, const char* record) {
        return {.run = run, .record = record, .known = false, .messages = {}};
    }
    std::string dryRun() {
        machine_.terminal.output.clear();
        machine_.request.dryRun = true;
        EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
        machine_.request.dryRun = false;
        return machine_.terminal.output;
    }
    MessagePatterns& patterns() { return machine_.request.settings.messages; }

    RunnerWorld machine_;
};

TEST_F(MessagesOfARun, Are_kept_for_every_record) {
    machine_.writeRecord("a.met", "one\r\n\r\nthree\r\n");
    machine_.writeRecord("b.met", "");
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    EXPECT_THAT(
        kept(),
        ElementsAre(said(1, "a.met", {{.line = 1, .text = "one"}, {.line = 3, .text = "three"}}),
                    said(1, "b.met", {})));
}

// What a share has made was said to its own log.
TEST_F(MessagesOfARun, Of_the_log_that_has_the_record_fail_it) {
    machine_.writeRecord("a.met", "fine");
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    machine_.writeRecord("a.met", "bad, now");
    machine_.request.job.share = Share{.number = 1, .count = 1};
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    machine_.request.job.share = {};
    EXPECT_EQ(dryRun(), "keep    a.met  up to date\n");
    patterns().failOn = {"bad*"};
    EXPECT_EQ(dryRun(), "run     a.met  what the tools say of it fails it\n");
    patterns().failOn = {"worse"};
    EXPECT_EQ(dryRun(), "keep    a.met  up to date\n");
}

TEST_F(MessagesOfARun, Are_CNSs_leftovers_and_then_MPs_errors) {
    machine_.definition.iProcessCNS = checked;
    output(machine_.definition, "Leftovers").bBuild = true;
    output(machine_.definition, "Leftovers").sOutputFolder = R"(C:\out)";
    machine_.processes.act = [&](const ToolCall& call) { return machine_.work(call); };
    machine_.writeRecord("a.met");
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    EXPECT_THAT(kept(), ElementsAre(said(1, "a.met",
                                         {{.line = 1, .text = "-e of a.met"},
                                          {.line = 1, .text = "-e of a.cns"}})));
}

TEST_F(MessagesOfARun, Are_read_before_what_a_failed_call_left_is_removed) {
    machine_.processes.act = [&](const ToolCall& call) {
        report(call);
        return exited(4);
    };
    machine_.writeRecord("a.met", "bad");
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    EXPECT_FALSE(machine_.world.exists(R"(C:\out\a.err)"));
    EXPECT_THAT(kept(), ElementsAre(said(1, "a.met", {{.line = 1, .text = "bad"}})));
}

TEST_F(MessagesOfARun, Are_not_those_of_an_older_report) {
    machine_.world.write(R"(C:\out\a.err)", "last year's");
    machine_.makeOlder(R"(C:\out\a.err)", 60);
    machine_.processes.act = [](const ToolCall&) { return exited(4); };
    machine_.writeRecord("a.met");
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(kept(), ElementsAre(unknown(1, "a.met")));
}

TEST_F(MessagesOfARun, Are_not_kept_where_no_report_is_asked_for) {
    output(machine_.definition, "Error").bBuild = false;
    machine_.processes.act = [&](const ToolCall& call) { return machine_.work(call); };
    machine_.writeRecord("a.met");
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    EXPECT_THAT(kept(), IsEmpty());
    patterns().failOn = {"*"};
    EXPECT_EQ(machine_.run(), ExitStatus::NothingRun);
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("tarnwick-run: Nothing could fail by --fail-on: the definition asks for "
                          "no error report of MP and no leftovers of CNS.\n"));
}

TEST_F(MessagesOfARun, A_message_that_the_user_will_not_have_fails_its_record_and_leaves_it_whole) {
    machine_.writeRecord("a.met", "fine\nError: \"x\" is bad");
    machine_.writeRecord("b.met", "fine");
    machine_.request.settings.retries = 3;
    patterns().failOn = {"error*"};
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("FAILED a.met: the tools say \"Error: \"x\" is bad\"\n"));
    EXPECT_THAT(machine_.terminal.output, HasSubstr("1 made, 1 failed, 0 up to date"));
    EXPECT_EQ(machine_.processes.calls().size(), 2U); // it would say the same again
    EXPECT_TRUE(machine_.world.exists(R"(C:\out\a.err)"));
    EXPECT_TRUE(machine_.world.exists(R"(C:\out\a.html)"));
    EXPECT_THAT(machine_.log(), HasSubstr("\nfailed\t1\ta.met\t"));

    patterns().failOn.clear();
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    EXPECT_THAT(machine_.terminal.output, HasSubstr("1 made, 0 failed, 1 up to date"));
}

TEST_F(MessagesOfARun, An_ignored_message_fails_nothing) {
    machine_.writeRecord("a.met", "error: harmless");
    patterns().failOn = {"error*"};
    patterns().ignore = {"*harmless"};
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    EXPECT_THAT(dryRun(), HasSubstr("keep    a.met"));
}

TEST_F(MessagesOfARun, What_is_up_to_date_runs_again_where_its_messages_fail_it) {
    machine_.writeRecord("a.met", "error");
    machine_.writeRecord("b.met", "fine");
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    patterns().failOn = {"error"};
    EXPECT_EQ(dryRun(), "run     a.met  what the tools say of it fails it\n"
                        "keep    b.met  up to date\n");
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.terminal.output, HasSubstr("0 made, 1 failed, 1 up to date"));
    EXPECT_THAT(machine_.log(), HasSubstr("\nbegun\t2\ta.met\t"));
}

TEST_F(MessagesOfARun, What_is_up_to_date_runs_again_where_its_messages_are_not_known) {
    machine_.writeRecord("a.met", "fine");
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    machine_.world.files().remove(messageLog);
    EXPECT_EQ(dryRun(), "keep    a.met  up to date\n");
    patterns().failOn = {"error"};
    EXPECT_EQ(dryRun(), "run     a.met  what the tools say of it is not known\n");
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    EXPECT_EQ(dryRun(), "keep    a.met  up to date\n");
}

TEST_F(MessagesOfARun, What_is_up_to_date_runs_again_where_not_all_of_them_are_kept) {
    std::string many;
    for (std::size_t line = 0; line <= mostMessages; ++line) {
        many += "fine\n";
    }
    machine_.writeRecord("long.met", "fine, " + std::string(longestMessage, 'x'));
    machine_.writeRecord("many.met", many);
    machine_.writeRecord("whole.met", "fine");
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    const std::string clean = "keep    long.met  up to date\n"
                              "keep    many.met  up to date\n"
                              "keep    whole.met  up to date\n";
    const std::string partlyKnown = "run     long.met  not all that the tools say of it is known\n"
                                    "run     many.met  not all that the tools say of it is known\n"
                                    "keep    whole.met  up to date\n";
    EXPECT_EQ(dryRun(), clean);
    patterns().failOn = {"error*"};
    EXPECT_EQ(dryRun(), partlyKnown);
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    EXPECT_THAT(machine_.log(), HasSubstr("\nbegun\t2\tlong.met\t"));
    EXPECT_EQ(dryRun(), clean); // what these patterns have seen
    patterns().failOn = {"*worse*"};
    EXPECT_EQ(dryRun(), partlyKnown);
    patterns().failOn.clear();
    EXPECT_EQ(dryRun(), clean);
}

// What is kept of it ends as the whole message does not: judged by that, it would run again for
// ever.
TEST_F(MessagesOfARun, What_was_judged_whole_is_not_judged_by_what_is_kept) {
    machine_.writeRecord("a.met", "fine, " + std::string(longestMessage, 'x') + "y");
    patterns().failOn = {"*x"};
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    EXPECT_EQ(dryRun(), "keep    a.met  up to date\n");
}

TEST_F(MessagesOfARun, Are_not_even_looked_at_when_there_is_nothing_to_do) {
    machine_.request.whenEnded = [](const RunEnd&) {
        return RunEndNotes{.totals = RunTotals(), .told = {}, .faults = {}};
    };
    machine_.writeRecord("a.met", "fine");
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    machine_.world.write(messageLog, "tarnwick-run messages 2\n");
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    EXPECT_EQ(machine_.world.read(messageLog), "tarnwick-run messages 2\n");
}

TEST_F(MessagesOfARun, A_log_of_a_newer_version_is_refused_before_anything_runs) {
    machine_.writeRecord("a.met", "fine");
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    machine_.processes.forget();
    machine_.world.write(messageLog, "tarnwick-run messages 2\n");
    machine_.writeRecord("b.met", "fine");
    EXPECT_EQ(machine_.run(), ExitStatus::NothingRun);
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("was written by a newer version of tarnwick-run.\n"));
    EXPECT_THAT(machine_.processes.calls(), IsEmpty());
    EXPECT_THAT(machine_.log(), Not(HasSubstr("b.met")));
}

TEST_F(MessagesOfARun, At_its_end_it_is_handed_on_and_its_totals_are_kept) {
    machine_.writeRecord("a.met", "fine");
    std::vector<std::pair<std::uint32_t, bool>> runs;
    const RunTotals totals{.begun = "then", .seconds = 1.5, .made = 1};
    machine_.request.whenEnded = [&](const RunEnd& end) {
        runs.emplace_back(end.run, end.hadWork);
        EXPECT_EQ(end.job.records.size(), 1U);
        EXPECT_EQ(end.summary.made + end.summary.upToDate, 1U);
        EXPECT_EQ(kept().size(), 1 + runs.size() - 1); // all of its messages are there
        return RunEndNotes{.totals = totals,
                           .findingsAsBefore = !end.hadWork,
                           .told = {"All is well."},
                           .faults = {}};
    };
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    EXPECT_THAT(kept(), ElementsAre(said(1, "a.met", {{.line = 1, .text = "fine"}}),
                                    TotalsLine{.run = 1, .totals = totals}));
    EXPECT_THAT(machine_.terminal.output, testing::EndsWith("\nAll is well.\n"));
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    EXPECT_THAT(runs, ElementsAre(std::pair(1, true), std::pair(2, false)));
    ASSERT_EQ(kept().size(), 3U);
    EXPECT_TRUE(std::get<TotalsLine>(kept()[2]).findingsAsBefore);
    EXPECT_EQ(std::get<TotalsLine>(kept()[2]).totals.upToDate, 0U);
}

TEST_F(MessagesOfARun, What_could_not_be_done_at_its_end_shows_in_the_status) {
    machine_.writeRecord("a.met", "fine");
    machine_.request.whenEnded = [](const RunEnd&) {
        return RunEndNotes{.totals = {},
                           .findingsAsBefore = false,
                           .told = {},
                           .faults = {"No room for a report."}};
    };
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.terminal.error, HasSubstr("tarnwick-run: No room for a report.\n"));
    EXPECT_THAT(machine_.terminal.output, HasSubstr("1 made, 0 failed"));
}

} // namespace
} // namespace tarnwick
