// Reports over whole runs: what was run and how, by the tools of RunnerWorld.

#include "platform/run_time_error.hpp"
#include "platform/windows_path.hpp"
#include "report/reports.hpp"
#include "support/forwarding_files.hpp"
#include "support/outputs.hpp"
#include "support/report_texts.hpp"
#include "unit/report/reports_world.hpp"

#include <gmock/gmock.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using State = ReportedRecord::State;

TEST_F(ReportsOnRuns, Before_the_first_run_everything_is_still_to_be_run) {
    machine_.writeRecord("a.met");
    EXPECT_EQ(states(), "a.met:-");
    EXPECT_EQ(value().totals, RunTotals{.notRun = 1});
    EXPECT_EQ(value().records[0].mpStem, "");
}

TEST_F(ReportsOnRuns, Tell_what_was_made_failed_or_was_up_to_date) {
    machine_.writeRecord("a.met", "x");
    machine_.writeRecord("fail.met", "worse");
    EXPECT_EQ(run(), ExitStatus::SomeFailed);
    EXPECT_EQ(states(), "a.met:m fail.met:f");
    machine_.writeRecord("b.met", "y");
    EXPECT_EQ(run(), ExitStatus::SomeFailed);
    EXPECT_EQ(states(), "a.met:u b.met:m fail.met:f");
    machine_.writeRecord("a.met", "changed since");
    machine_.writeRecord("c.met", "new");
    machine_.world.files().remove(R"(C:\in\b.met)");
    EXPECT_EQ(states(), "a.met:- c.met:- fail.met:f");

    const RunReport made = value();
    EXPECT_EQ(made.definition, "night.ini");
    EXPECT_EQ(made.made, "2026-11-22T01:02:03Z");
    EXPECT_EQ(made.records[2].why, "MP ended with status 3: no such element");
    EXPECT_THAT(made.records[2].calls, ElementsAre(ReportedCall{.tool = "MP", .code = 3}));
    EXPECT_EQ(made.records[2].mpStem, ""); // what it left was removed
    EXPECT_EQ(made.records[0].mpStem, "a");
    EXPECT_EQ(made.records[1].mpStem, "");
    EXPECT_THAT(
        made.products,
        ElementsAre(
            ReportedProduct{
                .label = "error", .folder = "../out/", .suffix = ".err", .holdsMessages = true},
            ReportedProduct{.label = "html", .folder = "../out/", .suffix = ".html"}));
    EXPECT_EQ(made.records[2].findings.size(), 1U); // its report was read before
}

TEST_F(ReportsOnRuns, Records_that_are_refused_have_failed) {
    machine_.definition.sInputExtensions = "*.met;*.txt";
    machine_.writeRecord("a.met");
    machine_.writeRecord("a.txt");
    machine_.writeRecord("b.met");
    EXPECT_EQ(run(), ExitStatus::SomeFailed);
    EXPECT_EQ(states(), "a.met:f a.txt:f b.met:m");
    EXPECT_THAT(value().records[0].why, HasSubstr("a.txt"));
}

TEST_F(ReportsOnRuns, Each_run_leaves_its_totals) {
    machine_.writeRecord("a.met", "bad 1\nbad 2");
    machine_.writeRecord("b.met");
    EXPECT_EQ(run(), ExitStatus::Done);
    machine_.writeRecord("a.met", "");
    EXPECT_EQ(run(), ExitStatus::Done);
    machine_.clock.date = "2026-11-23T01:02:03Z";
    EXPECT_EQ(run(), ExitStatus::Done); // nothing to do
    const RunTotals first{
        .begun = "2026-11-22T01:02:03Z", .made = 2, .recordsWithFindings = 2, .messages = 3};
    const RunTotals second{.begun = "2026-11-22T01:02:03Z",
                           .made = 1,
                           .upToDate = 1,
                           .recordsWithFindings = 1,
                           .messages = 1};
    const RunTotals third{
        .begun = "2026-11-23T01:02:03Z", .upToDate = 2, .recordsWithFindings = 1, .messages = 1};
    EXPECT_THAT(value().runs, ElementsAre(first, second, third));
    EXPECT_EQ(value().totals, third);
}

TEST_F(ReportsOnRuns, A_run_of_some_records_says_nothing_of_how_everything_stands) {
    machine_.writeRecord("a.met");
    machine_.writeRecord("b.met");
    machine_.request.job.records = {"a.met"};
    request_.ofSomeRecords = true;
    EXPECT_EQ(run(), ExitStatus::Done);
    EXPECT_EQ(run(), ExitStatus::Done); // nothing to do
    machine_.request.job.records.clear();
    EXPECT_THAT(value().runs, IsEmpty());
}

TEST_F(ReportsOnRuns, The_same_totals_come_with_and_without_a_report) {
    machine_.writeRecord("a.met", "bad 1\nbad 2");
    machine_.writeRecord("fail.met");
    EXPECT_EQ(run(), ExitStatus::SomeFailed);
    machine_.world.files().remove(R"(C:\job\night.state\messages.log)");
    machine_.world.files().remove(R"(C:\job\night.state\run.log)");
    const RunTotals without{.begun = "2026-11-22T01:02:03Z",
                            .made = 1,
                            .failed = 1,
                            .recordsWithFindings = 2,
                            .messages = 3};
    request_.files = {R"(C:\job\out.csv)"};
    EXPECT_EQ(run(), ExitStatus::SomeFailed);
    EXPECT_THAT(value().runs, ElementsAre(without));
}

TEST_F(ReportsOnRuns, Are_written_when_a_run_has_ended_and_again_without_tools) {
    machine_.writeRecord("a.met", "bad");
    request_.files = {R"(C:\job\out.html)", R"(C:\job\OUT.JSON)", R"(C:\job\out.csv)",
                      R"(C:\job\out.xml)"};
    EXPECT_EQ(run(), ExitStatus::Done) << machine_.terminal.error;
    const std::string root = machine_.world.drivesRoot() + "/c/job/";
    EXPECT_THAT(machine_.terminal.output, HasSubstr("\nThe report is " + root + "out.html\n"));
    EXPECT_EQ(machine_.world.read(R"(C:\job\out.csv)"), reportText(ReportKind::Csv, value()));
    const std::string page = machine_.world.read(R"(C:\job\out.html)");
    EXPECT_EQ(page, reportText(ReportKind::Html, value()));
    EXPECT_EQ(machine_.world.read(R"(C:\job\OUT.JSON)"), reportText(ReportKind::Json, value()));
    EXPECT_EQ(machine_.world.read(R"(C:\job\out.xml)"), reportText(ReportKind::JUnit, value()));

    machine_.world.files().remove(R"(C:\tools\mp.exe)");
    machine_.world.files().remove(R"(C:\job\out.html)");
    machine_.processes.forget();
    const std::string log = machine_.log();
    EXPECT_EQ(report(), ExitStatus::Done) << machine_.terminal.error;
    EXPECT_EQ(machine_.world.read(R"(C:\job\out.html)"), page);
    EXPECT_THAT(machine_.processes.calls(), IsEmpty());
    EXPECT_EQ(machine_.log(), log);
}

TEST_F(ReportsOnRuns, That_cannot_be_written_are_told_and_change_nothing_else) {
    machine_.writeRecord("a.met", "bad");
    request_.files = {R"(C:\gone\out.html)", R"(C:\job\out.csv)"};
    EXPECT_EQ(run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.terminal.output, HasSubstr("1 made, 0 failed, 0 up to date"));
    EXPECT_THAT(machine_.terminal.error, HasSubstr("out.html\" cannot be written: "));
    EXPECT_TRUE(machine_.world.exists(R"(C:\job\out.csv)"));
    EXPECT_EQ(states(), "a.met:m");
    EXPECT_EQ(value().runs.size(), 1U);
    EXPECT_EQ(report(), ExitStatus::SomeFailed);
}

TEST_F(ReportsOnRuns, Say_of_each_failure_what_the_tools_said_in_their_own_words) {
    for (const char* const number : {"1", "2", "3", "4", "5", "6", "7"}) { // more than are examples
        machine_.writeRecord("fail" + std::string(number) + ".met",
                             "in line " + std::string(number));
    }
    request_.files = {R"(C:\job\out.html)"};
    EXPECT_EQ(run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.world.read(R"(C:\job\out.html)"), HasSubstr("<q>in line 7</q>"));
}

TEST_F(ReportsOnRuns, Say_that_the_last_run_was_no_whole_one) {
    machine_.writeRecord("a.met");
    machine_.writeRecord("b.met");
    EXPECT_EQ(run(), ExitStatus::Done);
    EXPECT_TRUE(value().lastRunIsWhole);
    machine_.clock.date = "2026-11-22T09:02:03Z";
    machine_.writeRecord("b.met", "changed");
    machine_.request.job.records = {"b.met"};
    request_.ofSomeRecords = true;
    EXPECT_EQ(run(), ExitStatus::Done);
    machine_.request.job.records.clear();
    EXPECT_FALSE(value().lastRunIsWhole);
    EXPECT_EQ(value().totals.seconds, 0);
    EXPECT_THAT(reportText(ReportKind::Html, value()),
                HasSubstr(", which was of some records only, or has not come to its end."));
}

TEST_F(ReportsOnRuns, Say_by_which_patterns_they_were_made) {
    machine_.writeRecord("a.met", "noise 1\nbad");
    machine_.request.settings.messages = {.ignore = {"noise*"}, .failOn = {"bad"}};
    EXPECT_EQ(run(), ExitStatus::SomeFailed);
    EXPECT_THAT(value().remarks,
                ElementsAre("Messages like \"noise*\" are left out.",
                            "A record with a message like \"bad\" counts as failed."));
    EXPECT_EQ(report(), ExitStatus::SomeFailed); // who insists is told by the status
    machine_.request.settings.messages = {};
    request_.patterns = {};
    EXPECT_EQ(report(), ExitStatus::Done);
}

TEST_F(ReportsOnRuns, That_could_not_be_written_are_told_before_anything_is_run) {
    machine_.definition.sInputExtensions = "*.xml";
    machine_.writeRecord("a.xml", "record");
    machine_.world.write(R"(C:\job\page.html)", "somebody's");
    machine_.world.makeFolder(R"(C:\job\folder.html)");
    request_.files = {R"(C:\gone\out.html)",   R"(C:\in\b.xml)",
                      R"(C:\job\folder.html)", R"(C:\job\page.html)",
                      R"(C:\job\fine.html)",   R"(C:\job\night.state\fine.html)"};
    std::string told;
    machine_.processes.act = [&](const ToolCall& call) {
        told = machine_.terminal.error;
        return machine_.work(call);
    };
    EXPECT_EQ(run(), ExitStatus::SomeFailed);
    const std::string root = machine_.world.drivesRoot() + "/c/";
    const auto remark = [&](const std::string& file, const std::string& why) {
        return "tarnwick-run: The report \"" + root + file + "\" could not be written: " + why +
               ".\n";
    };
    EXPECT_EQ(told, remark("gone/out.html", "its folder does not exist") +
                        remark("in/b.xml", "it would be taken for a record") +
                        remark("job/folder.html", "a folder has that name") +
                        remark("job/page.html", "another file has that name"));
    EXPECT_TRUE(machine_.world.exists(R"(C:\job\fine.html)"));
    EXPECT_TRUE(machine_.world.exists(R"(C:\job\night.state\fine.html)"));
}

TEST_F(ReportsOnRuns, A_report_takes_the_place_of_none_but_a_report_of_its_kind) {
    machine_.definition.sInputExtensions = "*.xml";
    machine_.writeRecord("a.xml", "record");
    machine_.world.write(R"(C:\job\page.html)", "<!DOCTYPE html>\n<html>of somebody");
    request_.files = {R"(C:\in\A.XML)", R"(C:\job\page.html)"};
    EXPECT_EQ(run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("is not written: it would be taken for a record.\n"));
    EXPECT_THAT(machine_.terminal.error,
                HasSubstr("is not written: another file has that name.\n"));
    EXPECT_EQ(machine_.world.read(R"(C:\in\a.xml)"), "record");
    EXPECT_EQ(machine_.world.read(R"(C:\job\page.html)"), "<!DOCTYPE html>\n<html>of somebody");
    machine_.world.write(R"(C:\job\page.html)", "");
    for (const char* const name : {"page.html", "x.json", "x.csv", "x.xml"}) {
        request_.files = {joinPath(R"(C:\job)", name)};
        EXPECT_EQ(report(), ExitStatus::Done) << name;
        EXPECT_EQ(report(), ExitStatus::Done) << name << ", once more";
    }
}

TEST_F(ReportsOnRuns, Have_the_texts_of_messages_where_a_kind_that_tells_them_is_the_only_one) {
    machine_.writeRecord("a.met", "bad 7");
    EXPECT_EQ(run(), ExitStatus::Done);
    for (const char* const file : {R"(C:\job\out.json)", R"(C:\job\out.xml)"}) {
        request_.files = {file};
        EXPECT_EQ(report(), ExitStatus::Done);
        EXPECT_THAT(machine_.world.read(file), HasSubstr("bad 7")) << file;
    }
    EXPECT_THAT(machine_.world.read(R"(C:\job\out.json)"),
                HasSubstr(R"("messages":[{"line":1,"shape":0,"text":"bad 7"}])"));
}

TEST_F(ReportsOnRuns, A_record_of_which_not_all_messages_are_known_is_not_clean) {
    std::string many;
    for (std::size_t line = 0; line <= mostMessages; ++line) {
        many += "fine\n";
    }
    machine_.writeRecord("a.met", many);
    machine_.writeRecord("b.met", "fine");
    EXPECT_EQ(run(), ExitStatus::Done);
    EXPECT_EQ(states(), "a.met:m b.met:m");
    EXPECT_EQ(value().records[0].messages.size(), mostMessages);
    EXPECT_EQ(value().records[0].messagesLeftOut, 1U);
    request_.patterns.failOn = {"bad"};
    EXPECT_EQ(states(), "a.met:- b.met:m");
    EXPECT_EQ(value().records[0].mpStem, "a"); // its products are there
    machine_.request.settings.messages = request_.patterns;
    EXPECT_EQ(run(), ExitStatus::Done);
    EXPECT_EQ(states(), "a.met:m b.met:u");
}

TEST_F(ReportsOnRuns, A_record_with_a_message_that_nobody_wants_has_failed) {
    machine_.writeRecord("a.met", "bad");
    machine_.writeRecord("b.met", "fine");
    EXPECT_EQ(run(), ExitStatus::Done);
    request_.patterns.failOn = {"bad"};
    EXPECT_EQ(states(), "a.met:f b.met:m");
    EXPECT_EQ(value().records[0].why, "the tools say \"bad\"");
    EXPECT_EQ(value().records[0].mpStem, "a"); // its products are whole
    EXPECT_EQ(value().totals.failed, 1U);
}

TEST_F(ReportsOnRuns, Of_a_run_with_nothing_to_do_say_that_all_is_up_to_date) {
    machine_.writeRecord("a.met", "x");
    EXPECT_EQ(run(), ExitStatus::Done);
    machine_.writeRecord("a.met", "another");
    EXPECT_EQ(run(), ExitStatus::Done);
    EXPECT_EQ(value().changes.size(), 1U);
    machine_.clock.date = "2026-11-23T01:02:03Z";
    EXPECT_EQ(run(), ExitStatus::Done);
    EXPECT_EQ(states(), "a.met:u");
    EXPECT_THAT(value().changes, IsEmpty());
    EXPECT_EQ(value().totals.begun, "2026-11-23T01:02:03Z");
    EXPECT_EQ(value().runs.size(), 3U);
    EXPECT_EQ(value().runs.back(), value().totals);
    request_.files = {R"(C:\job\out.csv)"}; // a report counts for itself, to the same end
    EXPECT_EQ(run(), ExitStatus::Done);
    request_.files.clear();
    EXPECT_EQ(value().runs.size(), 4U);
    EXPECT_EQ(value().runs.back(), value().runs[2]);
}

TEST_F(ReportsOnRuns, What_is_gone_since_the_run_before_is_told) {
    machine_.writeRecord("a.met", "no date in \"x\"\nErrors: 1");
    machine_.writeRecord("b.met", "no date in \"y\"\nErrors: 1");
    EXPECT_EQ(run(), ExitStatus::Done);
    EXPECT_THAT(value().changes, IsEmpty());
    machine_.writeRecord("a.met", "Errors: 0, mended");
    EXPECT_EQ(run(), ExitStatus::Done);
    const RunReport made = value();
    ASSERT_EQ(made.changes.size(), 1U);
    EXPECT_EQ(made.records[made.changes[0].record].name, "a.met");
    EXPECT_TRUE(made.hasRunBefore);
}

TEST_F(ReportsOnRuns, Say_where_nothing_was_asked_of_the_tools) {
    output(machine_.definition, "Error").bBuild = false;
    machine_.processes.act = [&](const ToolCall& call) { return machine_.work(call); };
    machine_.writeRecord("a.met");
    EXPECT_EQ(run(), ExitStatus::Done);
    EXPECT_FALSE(value().findingsAreKnown);
    EXPECT_THAT(value().remarks, ElementsAre("The definition asks for no error reports: what the "
                                             "tools found in the records is not known."));
    request_.files = {R"(C:\job\out.csv)"};
    EXPECT_EQ(report(), ExitStatus::Done);
    EXPECT_THAT(machine_.world.read(R"(C:\job\out.csv)"), HasSubstr("\r\na.met,made,,,,"));
    machine_.request.settings.messages.failOn = {"bad"};
    request_.patterns = machine_.request.settings.messages;
    EXPECT_EQ(report(), ExitStatus::NothingRun);
    machine_.request.settings.messages = {};
    request_.patterns = {};
    output(machine_.definition, "Error").bBuild = true;
    EXPECT_TRUE(value().findingsAreKnown);
}

TEST_F(ReportsOnRuns, A_definition_that_cannot_be_gets_no_report) {
    request_.files = {R"(C:\job\out.html)"};
    machine_.definition.sInputFolder = R"(C:\gone)";
    EXPECT_EQ(report(), ExitStatus::NothingRun);
    EXPECT_THAT(machine_.terminal.error, HasSubstr("does not exist.\n"));
    EXPECT_FALSE(machine_.world.exists(R"(C:\job\out.html)"));
}

TEST_F(ReportsOnRuns, A_log_of_a_newer_version_is_told) {
    machine_.writeRecord("a.met");
    EXPECT_EQ(run(), ExitStatus::Done);
    machine_.world.write(R"(C:\job\night.state\messages.log)", "tarnwick-run messages 2\n");
    request_.files = {R"(C:\job\out.html)"};
    EXPECT_EQ(report(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine_.terminal.error, HasSubstr("No report can be made: The message log "));
    EXPECT_FALSE(machine_.world.exists(R"(C:\job\out.html)"));
}

TEST(KindsOfReports, Go_by_the_extension) {
    EXPECT_EQ(reportKindOf("a.html"), ReportKind::Html);
    EXPECT_EQ(reportKindOf("a.b.JSON"), ReportKind::Json);
    EXPECT_EQ(reportKindOf("x\\a.csv"), ReportKind::Csv);
    EXPECT_EQ(reportKindOf("a.xml"), ReportKind::JUnit);
    EXPECT_EQ(reportKindOf("a.htm"), std::nullopt);
    EXPECT_EQ(reportKindOf("html"), std::nullopt);
    EXPECT_EQ(reportKindOf(".html"), std::nullopt);
}

} // namespace
} // namespace tarnwick
