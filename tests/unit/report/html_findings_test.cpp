#include "report/html_findings.hpp"
#include "support/report_generator.hpp"
#include "unit/report/many_findings.hpp"
#include "unit/report/times_in.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

std::string findingsOf(const RunReport& report) {
    return findingsSection(report, PageLinks(report));
}

std::string changesOf(const RunReport& report) {
    return changesSection(report, ShapeLinks(report));
}

TEST(FindingsSection, A_shape_opens_its_examples_and_its_records) {
    EXPECT_TRUE(
        findingsOf(smallReport())
            .contains(
                R"(<tr id="s1"><td class="number">#1<th scope="row"><details><summary>Error (line #): &quot;…&quot; is no date</summary>
<ul class="examples">
<li><q>Error (line 3): &quot;soon&quot; is no date</q> <span><a href="#r1">lakes &amp; rivers.met</a>, line 3</span>
</ul>
<ul class="names">
<li><a href="#r1">lakes &amp; rivers.met</a>
</ul>
<p class="show"><a href="#records" data-show="#1">Find it among the records</a> (in the column Findings: #1)</p>
</details><td class="bar"><svg viewBox="0 0 100 10" preserveAspectRatio="none" aria-hidden="true"><rect width="33.3" height="10"/></svg><td class="number">1<td class="number">2<td class="number"><strong>new</strong>
)"));
}

TEST(FindingsSection, What_nearly_every_record_has_is_folded_at_the_end) {
    const std::string text = findingsOf(smallReport());
    const auto folded = text.find(
        "<details class=\"common\"><summary>1 message that nearly every record has</summary>");
    ASSERT_NE(folded, std::string::npos);
    EXPECT_LT(text.find("id=\"s1\""), folded);
    EXPECT_GT(text.find("id=\"s2\""), folded);
    EXPECT_FALSE(text.contains("id=\"s3\"")); // it is gone
}

TEST(FindingsSection, Of_many_records_the_first_hundred_are_named) {
    RunReport report;
    report.records.assign(250, {.name = "a.met", .findings = {{0, 1, 1}}});
    report.shapes = {{.text = "so", .records = 250, .messages = 250}};
    const std::string text = findingsOf(report);
    EXPECT_TRUE(text.contains("<p class=\"more\">And 150 more.</p>"));
    EXPECT_TRUE(text.contains(">Find all 250 among the records</a>"));
}

TEST(FindingsSection, Of_long_names_every_shape_has_as_many_as_have_room) {
    RunReport report;
    report.shapes.assign(40, {.text = "so", .records = 100, .messages = 100});
    report.records.assign(100, {.name = std::string(960, 'x') + ".met"});
    for (ShapePlace place = 0; place < 40; ++place) {
        for (ReportedRecord& record : report.records) {
            record.findings.push_back({place, 1, 1});
        }
    }
    const std::string text = findingsOf(report);
    // A name and its link take 988 bytes: 50 of each shape are a little less than 2 MB.
    EXPECT_EQ(timesIn(text, "<p class=\"more\">And 50 more.</p>"), 40U);
    EXPECT_EQ(timesIn(text, "<li><a href=\"#r50\">"), 40U);
    EXPECT_EQ(timesIn(text, "<li><a href=\"#r51\">"), 0U);
}

TEST(FindingsSection, Names_for_which_there_is_no_room_at_all_are_left_to_the_list) {
    RunReport report;
    report.shapes.assign(500, {.text = "so", .records = 1, .messages = 1});
    for (ShapePlace place = 0; place < 500; ++place) {
        report.records.push_back({.name = std::string(1000, '"'), .findings = {{place, 1, 1}}});
    }
    const std::string text = findingsOf(report);
    EXPECT_FALSE(text.contains("class=\"names\""));
    EXPECT_FALSE(text.contains(" more."));
    EXPECT_EQ(timesIn(text, ">Find it among the records</a>"), 500U);
}

TEST(FindingsSection, Of_very_many_shapes_the_first_are_shown) {
    RunReport report;
    report.shapes.assign(502, {.text = "so", .records = 1, .messages = 1});
    EXPECT_TRUE(findingsOf(report).contains(
        "<p class=\"more\">And 2 more messages: reports as .json have all.</p>"));
}

TEST(FindingsSection, A_link_that_finds_all_is_there_where_the_rows_of_all_records_name_the_shape) {
    const std::string text = findingsOf(reportWithMoreFindingsThanRoom());
    EXPECT_TRUE(text.contains(
        "data-show=\"#3\">Find all 1,501 among the records</a> (in the column Findings: #3)"));
    EXPECT_TRUE(text.contains("data-show=\"#25\">"));
    EXPECT_TRUE(text.contains("id=\"s26\""));
    EXPECT_FALSE(text.contains("data-show=\"#26\">"));
    EXPECT_FALSE(text.contains("Findings: #26)"));
}

TEST(FindingsSection, The_change_is_counted_in_records) {
    RunReport report = smallReport();
    report.shapes[0].recordsBefore = 4;
    EXPECT_TRUE(findingsOf(report).contains("<td class=\"number\">\u22123\n"));
    report.shapes[0].records = 1500;
    EXPECT_TRUE(findingsOf(report).contains("<td class=\"number\">+1,496\n"));
    report.hasRunBefore = false;
    EXPECT_FALSE(findingsOf(report).contains(">Change"));
}

TEST(FindingsSection, A_run_without_messages_says_so) {
    EXPECT_TRUE(findingsOf({}).contains("<p>The tools found nothing.</p>"));
}

TEST(ChangesSection, New_and_gone_are_told_by_shape_and_by_record) {
    EXPECT_EQ(changesOf(smallReport()),
              R"(<section id="changes" aria-labelledby="changes-heading">
<h2 id="changes-heading">New and gone since the run before</h2>
<h3>new: 1</h3>
<ul class="shapes">
<li><a href="#s1">#1</a> Error (line #): &quot;…&quot; is no date <span>1 record</span>
</ul>
<h3>gone: 1</h3>
<ul class="shapes">
<li>#3 … is empty <span>1 record</span>
</ul>
<h3>Records with new or gone messages: 1</h3>
<table class="changes"><thead><tr><th scope="col">Record<th scope="col">New<th scope="col">Gone</thead><tbody>
<tr><th scope="row"><a href="#r1">lakes &amp; rivers.met</a><td><a href="#s1">#1</a><td>#3
</tbody></table>
</section>
)");
}

TEST(ChangesSection, Of_many_new_or_gone_shapes_of_a_record_the_first_are_named) {
    RunReport report;
    report.hasRunBefore = true;
    report.shapes.assign(52, {.text = "so", .recordsBefore = 1});
    report.records = {{.name = "a.met"}};
    RecordChange change;
    for (ShapePlace place = 0; place < 26; ++place) {
        change.appeared.push_back(place);
        change.gone.push_back(26 + place);
    }
    change.appeared.pop_back();
    report.changes = {change};
    EXPECT_TRUE(changesOf(report).contains(" #24 #25<td>#27 #28 "));
    EXPECT_TRUE(changesOf(report).contains(" #50 #51 and 1 more\n</tbody>"));
}

TEST(ChangesSection, Of_very_many_changed_records_the_first_are_shown) {
    RunReport report;
    report.hasRunBefore = true;
    report.records = {{.name = "a.met"}};
    report.changes.assign(1001, {});
    EXPECT_TRUE(changesOf(report).contains(
        "<p class=\"more\">And 1 more record: reports as .json have all.</p>"));
}

TEST(ChangesSection, Without_a_run_before_there_is_none) {
    RunReport report = smallReport();
    report.hasRunBefore = false;
    EXPECT_EQ(changesOf(report), "");
}

} // namespace
} // namespace tarnwick
