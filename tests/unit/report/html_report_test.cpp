#include "report/html_report.hpp"
#include "report/page_assets.hpp"
#include "support/report_generator.hpp"
#include "support/report_texts.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

// What stands behind each `mark`, as far as the value of an attribute goes.
std::set<std::string> valuesBehind(std::string_view page, std::string_view mark) {
    std::set<std::string> values;
    for (auto at = page.find(mark); at != std::string_view::npos; at = page.find(mark, at + 1)) {
        const std::size_t begin = at + mark.size();
        values.emplace(page.substr(begin, page.find_first_of("\" >", begin) - begin));
    }
    return values;
}

TEST(HtmlReport, The_page_says_the_run_in_numbers) {
    EXPECT_TRUE(textOf(htmlReport, smallReport()).contains(R"(<body>
<header>
<h1>nightly.ini</h1>
<p>Run of <time datetime="2026-11-22T02:24:48Z">2026-11-22 02:24 UTC</time>, which took 12 min 34 s. Report made <time datetime="2026-11-22T02:37:22Z">2026-11-22 02:37 UTC</time>.</p>
</header>
<main>
<dl class="figures">
<div><dt>Records</dt><dd>3</dd></div>
<div class="made"><dt>Made</dt><dd>1</dd></div>
<div class="kept"><dt>Up to date</dt><dd>1</dd></div>
<div class="failed"><dt>Failed</dt><dd>1</dd></div>
<div class="notrun"><dt>Not run</dt><dd>0</dd></div>
<div><dt>With findings</dt><dd>1</dd></div>
<div><dt>Messages</dt><dd>14</dd></div>
</dl>
)"));
}

TEST(HtmlReport, Only_its_own_script_may_run_and_nothing_is_fetched) {
    const std::string page = textOf(htmlReport, hostileReport());
    EXPECT_TRUE(page.contains("default-src 'none'; img-src data:; style-src 'unsafe-inline'; "
                              "script-src 'nonce-"));
    // Its beginning and its end are the only ones, whatever the texts.
    EXPECT_EQ(page.find("<script"), page.rfind("<script"));
    EXPECT_EQ(page.find("</script"), page.rfind("</script"));
    EXPECT_EQ(page.find("<noscript"), page.rfind("<noscript"));
    EXPECT_EQ(page.find("</noscript"), page.rfind("</noscript"));
    EXPECT_FALSE(page.contains("href=\"javascript:"));
    EXPECT_FALSE(page.contains("href=\"data:text"));
}

TEST(HtmlReport, The_mark_of_the_script_depends_on_every_text) {
    const auto markOf = [](const std::string& page) {
        return page.substr(page.find("'nonce-"), 24);
    };
    RunReport report = smallReport();
    const std::string one = textOf(htmlReport, report);
    report.records[1].name = "tide,stations.met";
    EXPECT_NE(markOf(one), markOf(textOf(htmlReport, report)));
    EXPECT_EQ(markOf(one), markOf(textOf(htmlReport, smallReport())));
}

TEST(HtmlReport, Every_link_within_the_page_leads_to_something) {
    RunReport report;
    report.hasRunBefore = true;
    report.shapes.assign(801, {.text = "so", .records = 1, .messages = 1});
    report.shapes.back() = {.text = "gone", .recordsBefore = 1};
    report.shapes.front().common = true;
    report.records.assign(
        800, {.name = "a.met", .state = ReportedRecord::State::Failed, .calls = {{"MP", 2, 1}}});
    for (ShapePlace place = 0; place < 800; ++place) {
        report.records[place].findings = {{place, 1, 1}};
        report.shapes[place].examples = {{place, 1, "so"}};
        report.changes.push_back({place, {place}, {800}});
    }
    std::string page = textOf(htmlReport, report);
    page.resize(page.find("<script"));
    const std::set<std::string> targets = valuesBehind(page, " href=\"#");
    std::set<std::string> places = valuesBehind(page, " id=\"");
    places.merge(valuesBehind(page, " id=")); // those of records have no marks around them
    places.erase("");
    for (const std::string& target : targets) {
        EXPECT_TRUE(places.contains(target)) << target;
    }
    EXPECT_TRUE(targets.contains("s501")); // the five hundredth that is not common
    EXPECT_FALSE(targets.contains("s502"));
    EXPECT_TRUE(targets.contains("r800"));
    EXPECT_TRUE(page.contains("<td>#502<td>#801\n")); // a change is told by its number alone
}

TEST(HtmlReport, Where_findings_are_not_known_the_page_has_its_remarks_and_shows_none) {
    RunReport report = smallReport();
    report.findingsAreKnown = false;
    const std::string page = textOf(htmlReport, report);
    EXPECT_TRUE(page.contains("<p class=\"remark\">Share 2 of 4 is still at work.</p>"));
    EXPECT_FALSE(page.contains("id=\"findings\""));
    EXPECT_FALSE(page.contains("id=\"changes\""));
    EXPECT_FALSE(page.contains("<dt>Messages</dt>"));
}

TEST(HtmlReport, A_definition_that_has_never_run_has_a_page_too) {
    const std::string page = textOf(htmlReport, {});
    EXPECT_TRUE(page.contains("No record failed."));
    EXPECT_TRUE(page.contains("The tools found nothing."));
    EXPECT_TRUE(page.contains("No run has ended yet."));
    EXPECT_TRUE(page.contains("No tool has run yet."));
}

TEST(PageAssets, They_name_nothing_beyond_the_page) {
    for (const std::string_view text : {pageStyle(), pageScript()}) {
        EXPECT_FALSE(text.empty());
        EXPECT_FALSE(text.contains("//www"));
        EXPECT_FALSE(text.contains("http"));
        EXPECT_FALSE(text.contains("@import"));
        EXPECT_FALSE(text.contains("url(\""));
    }
}

} // namespace
} // namespace tarnwick
