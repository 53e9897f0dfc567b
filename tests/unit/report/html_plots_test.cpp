#include "report/html_plots.hpp"
#include "support/report_generator.hpp"
#include "unit/report/times_in.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(StateBar, Its_parts_are_as_wide_as_they_are_many) {
    const std::string bar = stateBar(smallReport());
    EXPECT_TRUE(
        bar.contains("role=\"img\" aria-label=\"1 made, 1 up to date, 1 failed, 0 not run\">"));
    EXPECT_TRUE(
        bar.contains("<rect class=\"made\" x=\"0.0\" y=\"0.0\" width=\"333.3\" height=\"28.0\">"
                     "<title>1 made</title></rect>"));
    EXPECT_TRUE(bar.contains("<rect class=\"failed\" x=\"666.7\""));
    EXPECT_FALSE(bar.contains("class=\"notrun\""));
}

TEST(StateBar, One_failure_among_a_hundred_thousand_is_seen) {
    RunReport report;
    report.totals.made = 99999;
    report.totals.failed = 1;
    EXPECT_TRUE(
        stateBar(report).contains("<rect class=\"failed\" x=\"1000.0\" y=\"0.0\" width=\"4.0\""));
}

TEST(RunsSection, Each_run_has_a_bar_in_each_plot_and_a_row) {
    const std::string text = runsSection(smallReport());
    EXPECT_TRUE(
        text.contains("aria-label=\"Records failed in the last 2 runs: at most 2, in the last "
                      "one 1\">"));
    EXPECT_TRUE(
        text.contains("<rect class=\"before\" x=\"576.0\" y=\"0.0\" width=\"10.0\" "
                      "height=\"64.0\"><title>2026-11-21T02:24:48Z: 2</title></rect>\n"
                      "<rect class=\"now\" x=\"588.0\" y=\"32.0\" width=\"10.0\" height=\"32.0\">"
                      "<title>2026-11-22T02:24:48Z: 1</title></rect>"));
    EXPECT_EQ(timesIn(text, "<rect class=\"now\""), 3U);
    EXPECT_EQ(timesIn(text, "<tr><th scope=\"row\">"), 2U);
}

TEST(RunsSection, Where_findings_are_not_known_only_failures_are_plotted) {
    RunReport report = smallReport();
    report.findingsAreKnown = false;
    EXPECT_EQ(timesIn(runsSection(report), "<figure>"), 1U);
}

TEST(TimesSection, A_call_is_counted_where_it_belongs) {
    const std::string text = timesSection(smallReport());
    EXPECT_TRUE(text.contains("<caption>CNS</caption>"));
    EXPECT_TRUE(text.contains("<tr><th scope=\"row\">2 ms to 5 ms<td class=\"bar\">"));
    EXPECT_TRUE(text.contains("<tr><th scope=\"row\">500 ms to 1 s<td class=\"bar\">"));
    EXPECT_TRUE(text.contains("<tr><th scope=\"row\">1 s to 2 s<td class=\"bar\">"));
    EXPECT_FALSE(text.contains("2 s to 5 s")); // nothing took longer
}

TEST(TimesSection, Very_long_calls_are_counted_too) {
    RunReport report;
    report.records = {{.name = "a", .calls = {{"MP", 0, 1e9}}},
                      {.name = "b", .calls = {{"MP", 0, 0}}}};
    const std::string text = timesSection(report);
    EXPECT_TRUE(text.contains("<tr><th scope=\"row\">5000 s and more<td"));
    EXPECT_TRUE(text.contains("<tr><th scope=\"row\">under 1 ms<td"));
}

TEST(TimesSection, The_slowest_twenty_are_named_slowest_first) {
    const std::string text = timesSection(generatedReport(100));
    EXPECT_EQ(
        timesIn(text.substr(text.find("<caption>The slowest calls")), "<tr><th scope=\"row\">"),
        20U);
    const std::string few = timesSection(smallReport());
    EXPECT_TRUE(few.contains("<tr><th scope=\"row\"><a href=\"#r2\">tide.stations.met</a><td>MP<td "
                             "class=\"number\">1.500<td "
                             "class=\"number\">0\n"
                             "<tr><th scope=\"row\"><a href=\"#r3\">wells.met</a><td>MP<td "
                             "class=\"number\">0.500<td class=\"number\">2\n"));
}

} // namespace
} // namespace tarnwick
