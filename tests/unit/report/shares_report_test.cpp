// Reports over the shares of a definition: as over a single run.

#include "platform/windows_path.hpp"
#include "report/joined_runs.hpp"
#include "unit/report/reports_world.hpp"

#include <gmock/gmock.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ReportsOnShares : public ReportsOnRuns {
  protected:
    ReportsOnShares() {
        for (int record = 0; record < 12; ++record) {
            machine_.writeRecord("r" + std::to_string(record) + ".met",
                                 "Error (line " + std::to_string(record) + "): no \"title\"");
        }
        machine_.writeRecord("fail.met", "Error: worse");
    }

    ExitStatus run(std::uint32_t number, std::uint32_t count) {
        machine_.request.job.share = Share{.number = number, .count = count};
        request_.share = machine_.request.job.share;
        const ExitStatus status = ReportsOnRuns::run();
        machine_.request.job.share = {};
        request_.share = {};
        return status;
    }
    void runAll(std::uint32_t count) {
        for (std::uint32_t number = 1; number <= count; ++number) {
            EXPECT_NE(run(number, count), ExitStatus::NothingRun) << machine_.terminal.error;
        }
    }
    void forgetRuns() {
        for (const std::string& name :
             machine_.world.files().listFiles(request_.stateFolder, "*").names) {
            machine_.world.files().remove(joinPath(request_.stateFolder, name));
        }
        for (const std::string& name : machine_.world.files().listFiles(R"(C:\out)", "*").names) {
            machine_.world.files().remove(joinPath(R"(C:\out)", name));
        }
    }
};

TEST_F(ReportsOnShares, Say_what_one_over_a_single_run_says) {
    EXPECT_EQ(ReportsOnRuns::run(), ExitStatus::SomeFailed);
    RunReport single = value();
    EXPECT_EQ(single.totals.failed, 1U);
    EXPECT_EQ(single.totals.made, 12U);
    forgetRuns();
    runAll(3);
    RunReport shares = value();
    for (RunReport* const report : {&single, &shares}) {
        report->made.clear();
        report->totals.begun.clear();
        report->totals.seconds = 0;
        ASSERT_THAT(report->runs, SizeIs(1));
        report->runs.clear();
        for (ReportedRecord& record : report->records) {
            for (ReportedCall& call : record.calls) {
                call.seconds = 0;
            }
        }
    }
    EXPECT_EQ(shares, single);
}

TEST_F(ReportsOnShares, A_share_that_is_run_again_tells_what_is_new_and_gone) {
    runAll(2);
    machine_.writeRecord("r3.met", "Error: another\n");
    machine_.clock.date = "2026-11-23T01:02:03Z";
    runAll(2);
    const RunReport report = value();
    EXPECT_TRUE(report.hasRunBefore);
    ASSERT_THAT(report.changes, SizeIs(1));
    EXPECT_EQ(report.records[report.changes[0].record].name, "r3.met");
    EXPECT_EQ(report.totals.upToDate + report.totals.made, 12U);
    EXPECT_EQ(report.totals.begun, "2026-11-23T01:02:03Z");
    ASSERT_THAT(report.runs, SizeIs(2));
    EXPECT_EQ(report.runs[1].made + report.runs[1].upToDate, 12U);
    EXPECT_EQ(report.runs[1].failed, 1U);
}

TEST_F(ReportsOnShares, A_share_of_the_next_night_is_a_run_by_itself) {
    EXPECT_NE(run(1, 2), ExitStatus::NothingRun);
    machine_.clock.date = "2026-11-22T13:02:03Z"; // twelve hours later
    EXPECT_NE(run(2, 2), ExitStatus::NothingRun);
    EXPECT_EQ(value().totals.begun, "2026-11-22T01:02:03Z");
    EXPECT_EQ(value().totals.made, 12U);
    forgetRuns();
    machine_.clock.date = "2026-11-22T01:02:03Z";
    EXPECT_NE(run(1, 2), ExitStatus::NothingRun);
    machine_.clock.date = "2026-11-22T13:02:04Z"; // and a second
    EXPECT_NE(run(2, 2), ExitStatus::NothingRun);
    const RunReport report = value();
    EXPECT_EQ(report.totals.begun, "2026-11-22T13:02:04Z");
    EXPECT_GT(report.totals.upToDate, 0U); // by the run before
    ASSERT_THAT(report.runs, SizeIs(2));
    EXPECT_EQ(report.runs[1].made, 12U); // what was not run again counts as it was
}

TEST_F(ReportsOnShares, What_a_plain_run_has_mended_since_is_no_failure) {
    runAll(2);
    machine_.writeRecord("fail.met", "fine now");
    machine_.clock.date = "2026-11-23T01:02:03Z";
    machine_.processes.act = [this](const ToolCall& call) {
        const ToolEnd end = machine_.work(call);
        RunnerWorld::writeHost(call.arguments[3], "fine now");
        return end;
    };
    EXPECT_EQ(ReportsOnRuns::run(), ExitStatus::Done);
    const RunReport report = value();
    EXPECT_EQ(report.totals.failed, 0U);
    EXPECT_EQ(report.records[0].name, "fail.met");
    EXPECT_EQ(report.records[0].state, ReportedRecord::State::Made);
    EXPECT_EQ(report.totals.upToDate, 12U);
    EXPECT_EQ(report.shapes.back().text, "fine now");
}

TEST_F(ReportsOnShares, Shares_at_work_are_told) {
    runAll(3);
    EXPECT_THAT(value().remarks, IsEmpty());
    const auto hold = [this](std::string_view name) {
        return machine_.locks.tryLock(joinPath(request_.stateFolder, name), "process 7 on HERE");
    };
    const auto first = hold("share-1-of-3.lock");
    EXPECT_THAT(value().remarks, ElementsAre("Share 1 of 3 is still at work."));
    const auto third = hold("share-3-of-3.lock");
    EXPECT_THAT(value().remarks, ElementsAre("Shares 1 and 3 of 3 are still at work."));
    request_.files = {R"(C:\job\out.csv)"}; // which has no place for it
    machine_.terminal.error.clear();
    EXPECT_EQ(report(), ExitStatus::Done);
    EXPECT_EQ(machine_.terminal.error, "tarnwick-run: Shares 1 and 3 of 3 are still at work.\n");
    request_.holder = "process 7 on HERE"; // it is itself that reports
    EXPECT_THAT(value().remarks, IsEmpty());
}

RunTotals totals(const std::string& begun, std::size_t made, double seconds = 1) {
    return {.begun = begun, .seconds = seconds, .made = made};
}

TEST(JoinedRuns, Of_one_log_are_its_runs) {
    EXPECT_THAT(runsOf({{.log = 0, .run = 1, .totals = totals("2", 5)},
                        {.log = 0, .run = 2, .totals = totals("1", 7)}},
                       std::vector<MessageSource>(1)),
                ElementsAre(totals("2", 5), totals("1", 7)));
}

TEST(JoinedRuns, Of_shares_are_one_run_until_one_is_run_again) {
    const std::vector<MessageSource> sources{{.path = "plain"},
                                             {.path = "1 of 2", .lastRun = 2, .shares = 2},
                                             {.path = "2 of 2", .lastRun = 1, .shares = 2}};
    EXPECT_THAT(runsOf({{.log = 0, .run = 1, .totals = totals("0", 1)},
                        {.log = 1, .run = 1, .totals = totals("1", 10, 4)},
                        {.log = 1, .run = 2, .totals = totals("3", 12)},
                        {.log = 2, .run = 1, .totals = totals("2", 20, 9)}},
                       sources),
                ElementsAre(totals("0", 1), totals("1", 30, 9), totals("3", 32)));
}

std::vector<MessageSource> shares(std::uint32_t count) {
    std::vector<MessageSource> sources(1); // the plain one
    sources.resize(1 + count, MessageSource{.path = {}, .lastRun = 1, .shares = count});
    return sources;
}

std::vector<std::string> beginnings(const std::vector<RunTotals>& runs) {
    std::vector<std::string> result;
    result.reserve(runs.size());
    for (const RunTotals& run : runs) {
        result.push_back(run.begun);
    }
    return result;
}

TEST(JoinedRuns, A_night_in_which_a_share_was_left_out_does_not_reach_into_the_next) {
    const auto runs = runsOf({{.log = 1, .run = 1, .totals = totals("2026-11-20T02:00:00Z", 10)},
                              {.log = 1, .run = 2, .totals = totals("2026-11-21T02:00:02Z", 11)},
                              {.log = 2, .run = 1, .totals = totals("2026-11-21T02:00:01Z", 20)}},
                             shares(2));
    EXPECT_THAT(beginnings(runs), ElementsAre("2026-11-20T02:00:00Z", "2026-11-21T02:00:01Z"));
    EXPECT_EQ(runs[0].made, 10U);
    EXPECT_EQ(runs[1].made, 31U);
}

TEST(JoinedRuns, Shares_that_follow_one_another_for_days_are_one_run) {
    const auto runs = runsOf({{.log = 1, .run = 1, .totals = totals("2026-02-27T20:00:00Z", 1)},
                              {.log = 2, .run = 1, .totals = totals("2026-02-28T08:00:00Z", 2)},
                              {.log = 3, .run = 1, .totals = totals("2026-02-28T20:00:00Z", 4)},
                              {.log = 4, .run = 1, .totals = totals("2026-03-01T08:00:01Z", 8)}},
                             shares(4));
    EXPECT_THAT(beginnings(runs), ElementsAre("2026-02-27T20:00:00Z", "2026-03-01T08:00:01Z"));
    EXPECT_EQ(runs[0].made, 7U);
    EXPECT_EQ(runs[1].made, 15U); // what was not run again counts as it was
}

RunTotals said(const std::string& begun, std::uint64_t messages) {
    return {.begun = begun, .upToDate = 1, .recordsWithFindings = 1, .messages = messages};
}
EndedRun idle(std::uint32_t log, std::uint32_t run, const std::string& begun) {
    return {.log = log,
            .run = run,
            .totals = {.begun = begun, .upToDate = 1},
            .findingsAsBefore = true};
}

TEST(JoinedRuns, Of_a_run_with_nothing_to_do_the_findings_are_those_before) {
    EXPECT_THAT(runsOf({idle(0, 1, "0"),
                        {.log = 0, .run = 2, .totals = said("1", 7)},
                        idle(0, 3, "2"),
                        idle(0, 4, "3")},
                       std::vector<MessageSource>(1)),
                ElementsAre(RunTotals{.begun = "0", .upToDate = 1}, said("1", 7), said("2", 7),
                            said("3", 7)));
}

TEST(JoinedRuns, Of_shares_with_nothing_to_do_the_findings_are_those_before_of_each_or_of_all) {
    auto runs = runsOf({{.log = 1, .run = 1, .totals = said("1", 7)},
                        {.log = 2, .run = 1, .totals = said("2", 8)},
                        idle(1, 2, "3"),
                        {.log = 2, .run = 2, .totals = said("4", 1)},
                        idle(0, 1, "5"),
                        idle(0, 2, "6")},
                       shares(2));
    std::vector<std::uint64_t> messages;
    messages.reserve(runs.size());
    for (const RunTotals& run : runs) {
        messages.push_back(run.messages);
    }
    EXPECT_THAT(messages, ElementsAre(15, 8, 8, 8)); // a plain run has found all made by shares
}

TEST(JoinedRuns, No_more_than_a_page_can_show_are_given) {
    std::vector<EndedRun> ended;
    ended.reserve(RunReport::mostRuns + 3);
    for (std::size_t run = 0; run < RunReport::mostRuns + 3; ++run) {
        ended.push_back({.log = 0, .run = 0, .totals = totals("x", run)});
    }
    const auto runs = runsOf(ended, std::vector<MessageSource>(1));
    ASSERT_THAT(runs, SizeIs(RunReport::mostRuns));
    EXPECT_EQ(runs.front().made, 3U);
}

} // namespace
} // namespace tarnwick
