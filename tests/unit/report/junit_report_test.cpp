#include "report/junit_report.hpp"
#include "support/report_generator.hpp"
#include "support/report_texts.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(JunitReport, A_record_is_a_case) {
    EXPECT_EQ(textOf(junitReport, smallReport()), R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites tests="3" failures="1" errors="0">
<testsuite name="nightly.ini" tests="3" failures="1" errors="0" skipped="0" time="754.000" timestamp="2026-11-22T02:24:48Z">
<testcase classname="nightly.ini" name="lakes &amp; rivers.met" time="0.015">
<system-out>line 3: Error (line 3): &quot;soon&quot; is no date
line 301: Error (line 7): &quot;late&quot; is no date
And 12 messages more.
</system-out>
</testcase>
<testcase classname="nightly.ini" name="tide.stations.met" time="1.500">
</testcase>
<testcase classname="nightly.ini" name="wells.met" time="0.500">
<failure message="MP ended with status 2: no element: &quot;West&quot;">MP ended with status 2: no element: &quot;West&quot;
</failure>
</testcase>
<system-err>Share 2 of 4 is still at work.
</system-err>
</testsuite>
</testsuites>
)");
}

TEST(JunitReport, A_failed_record_says_what_the_tools_said_too) {
    RunReport report = smallReport();
    report.records[2].findings = {{0, 1, 4}};
    report.records[2].messages.add({.shape = 0, .line = 4, .text = "\"never\" is no date"});
    EXPECT_TRUE(textOf(junitReport, report)
                    .contains("MP ended with status 2: no element: &quot;West&quot;\n"
                              "line 4: &quot;never&quot; is no date\n</failure>"));
}

TEST(JunitReport,
     A_failed_record_says_also_what_nearly_every_record_has_and_how_much_more_there_was) {
    RunReport report = smallReport();
    report.records[2].findings = {{1, 1, 4}};
    report.records[2].messages.add({.shape = 1, .line = 4, .text = "no licence"});
    report.records[2].messagesLeftOut = 1234;
    EXPECT_TRUE(textOf(junitReport, report)
                    .contains("line 4: no licence\nAnd 1,234 messages more.\n</failure>"));
}

TEST(JunitReport, Nothing_is_said_where_all_is_what_nearly_every_record_has) {
    RunReport report = smallReport();
    report.records[1].findings = {{1, 1, 4}};
    report.records[1].messages.add({.shape = 1, .line = 4, .text = "0 errors"});
    EXPECT_TRUE(textOf(junitReport, report).contains("time=\"1.500\">\n</testcase>\n"));
}

TEST(JunitReport, A_record_that_has_not_run_is_skipped_whatever_it_said_before) {
    RunReport report = smallReport();
    report.records[0].state = ReportedRecord::State::NotRun;
    report.totals.notRun = 1;
    const std::string text = textOf(junitReport, report);
    EXPECT_TRUE(text.contains("time=\"0.015\">\n<skipped/>\n<system-out>line 3:"));
    EXPECT_TRUE(text.contains(" skipped=\"1\" "));
}

TEST(JunitReport, What_must_be_known_of_the_whole_stands_below_its_cases) {
    RunReport report = smallReport();
    report.remarks = {"Share 1 of 2 is at work: <somebody>.", "So is share 2."};
    EXPECT_TRUE(textOf(junitReport, report)
                    .ends_with("</testcase>\n<system-err>Share 1 of 2 is at work: "
                               "&lt;somebody&gt;.\nSo is share 2.\n"
                               "</system-err>\n</testsuite>\n</testsuites>\n"));
}

TEST(JunitReport, Nothing_in_a_text_begins_an_element) {
    const std::string text = textOf(junitReport, hostileReport());
    EXPECT_FALSE(text.contains("<script"));
    EXPECT_FALSE(text.contains("<broken"));
    EXPECT_FALSE(text.contains("]]>"));
}

} // namespace
} // namespace tarnwick
