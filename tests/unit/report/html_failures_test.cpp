#include "report/html_failures.hpp"
#include "support/report_generator.hpp"
#include "unit/report/times_in.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

std::string failuresOf(const RunReport& report) {
    return failuresSection(report, ShapeLinks(report));
}

TEST(FailuresSection, A_failure_says_why_what_the_tools_said_and_where_that_lies) {
    RunReport report = smallReport();
    report.records[0].state = ReportedRecord::State::Failed;
    report.records[0].why = "the tools say \"so\"";
    report.records[0].findings = {{1, 1, 9}, {0, 2, 3}, {2, 1, 4}};
    report.shapes[2].records = 1;
    report.records[0].messages = {};
    report.records[0].messages.add({.shape = 1, .line = 9, .text = "3 errors"});
    report.records[0].messages.add({.shape = 0, .line = 3, .text = "\"soon\" is no date"});
    report.records[0].messages.add({.shape = 0, .line = 5, .text = "\"late\" is no date"});
    report.totals.failed = 2;
    EXPECT_EQ(failuresOf(report),
              R"(<section id="failures" aria-labelledby="failures-heading">
<h2 id="failures-heading">Failures <span class="count">2</span></h2>
<table class="failures"><thead><tr><th scope="col">Record<th scope="col">Why, and what the tools said</thead><tbody>
<tr><th scope="row"><a href="#r1">lakes &amp; rivers.met</a><td>the tools say &quot;so&quot;
<ul class="said">
<li><a href="#s1">#1</a> <q>&quot;soon&quot; is no date</q> <span>line 3, the first of 2 messages</span>
<li><a href="#s3">#3</a> … is empty <span>line 4</span>
<li><a href="#s2">#2</a> <q>3 errors</q> <span>line 9</span>
</ul>
<p class="left"><a href="../products/errors/lakes%20%26%20rivers.err">Error</a> <a href="../products/left%20overs/lakes%20%26%20rivers.left">Leftovers</a> <a href="../products/html/lakes%20%26%20rivers.html">Html</a> </p>
<tr><th scope="row"><a href="#r3">wells.met</a><td>MP ended with status 2: no element: &quot;West&quot;
</tbody></table>
</section>
)");
    report.findingsAreKnown = false; // and nowhere on the page
    EXPECT_FALSE(failuresOf(report).contains("class=\"said\""));
}

TEST(FailuresSection, Of_very_many_failures_the_first_are_shown) {
    RunReport report;
    report.records.assign(1002,
                          {.name = "a.met", .state = ReportedRecord::State::Failed, .why = "so"});
    report.totals.failed = 1002;
    const std::string page = failuresOf(report);
    EXPECT_EQ(timesIn(page, "<td>so\n"), 1000U);
    EXPECT_TRUE(page.contains("And 2 more failed records: reports as .json or .csv have all."));
}

TEST(FailuresSection, Of_very_many_messages_the_first_are_shown_and_of_very_long_ones_numbers) {
    RunReport report;
    report.records.assign(1000, {.name = "a.met", .state = ReportedRecord::State::Failed});
    report.totals.failed = 1000;
    for (ShapePlace place = 0; place < 28; ++place) {
        Shape& shape = report.shapes.emplace_back();
        shape.text.assign(900, 'x');
        shape.records = 1000;
        for (ReportedRecord& record : report.records) {
            record.findings.push_back({place, 1, place + 1});
            record.messages.add({.shape = place, .line = place + 1, .text = shape.text});
        }
    }
    const std::string page = failuresOf(report);
    EXPECT_EQ(timesIn(page, "<li>And 3 more.\n"), 1000U);
    EXPECT_EQ(timesIn(page, "<a href=\"#s25\">#25</a>"), 1000U);
    EXPECT_FALSE(page.contains("#26"));
    const std::size_t whole = timesIn(page, "<q>") / 25;
    EXPECT_GT(whole, 10U);
    EXPECT_LT(whole, 100U);
    EXPECT_LT(page.size(), 4'000'000U);
    EXPECT_TRUE(page.contains("<a href=\"#s25\">#25</a> <span>line 25</span>\n<li>And 3 more."));
}

TEST(FailuresSection, A_run_without_failures_says_so) {
    EXPECT_TRUE(failuresOf({}).contains("<p>No record failed.</p>"));
}

} // namespace
} // namespace tarnwick
