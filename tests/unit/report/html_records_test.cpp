#include "report/html_records.hpp"
#include "support/report_generator.hpp"
#include "unit/report/many_findings.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

std::string sectionOf(const RunReport& report) {
    std::string text;
    recordsSection(report, ListedFindings(report), [&](std::string_view piece) { text += piece; });
    return text;
}

TEST(RecordsSection, A_row_has_the_record_and_links_to_its_products) {
    EXPECT_TRUE(sectionOf(smallReport())
                    .contains(
                        R"(<tbody>
<tr id=r1><th>lakes &amp; rivers.met<td>made<td>#1 #2<td>14<td>0.015<td><a href="../products/html/lakes%20%26%20rivers.html">Html</a> <a href="../products/errors/lakes%20%26%20rivers.err">Error</a> <a href="../products/left%20overs/lakes%20%26%20rivers.left">Leftovers</a> )"
                        R"(
<tr id=r2 data-c=""><th>tide.stations.met<td>up to date<td><td>0<td>1.500<td><a href="../products/html/tide.stations.html">Html</a> <a href="../products/errors/tide.stations.err">Error</a> )"
                        R"(
<tr id=r3 class="f" data-m="" data-c=""><th>wells.met<td>failed<td><td>0<td>0.500<td>
</tbody></table></noscript>
</section>
)"));
}

TEST(RecordsSection, The_script_is_told_where_the_products_lie) {
    EXPECT_TRUE(sectionOf(smallReport())
                    .contains(
                        R"(<p class="products" id="products">Folders of the products:
<a href="../products/html/" data-suffix=".html" data-of="m">Html</a>
<a href="../products/errors/" data-suffix=".err" data-of="m">Error</a>
<a href="../products/left%20overs/" data-suffix=".left" data-of="c">Leftovers</a>
</p>)"));
}

TEST(RecordsSection, A_stem_that_the_shown_name_does_not_give_is_said) {
    RunReport report;
    report.products = {{"Html", "out/", ".html", false}};
    report.records = {{.name = "caf\xE9.met", .mpStem = "caf\xE9"}};
    EXPECT_TRUE(sectionOf(report).contains(
        "<tr id=r1 data-m=\"caf%E9\" data-c=\"\"><th>caf&lt;U+00E9&gt;.met<td>not "
        "run<td><td>0<td><td>"
        "<a href=\"out/caf%E9.html\">Html</a> \n"));
}

TEST(RecordsSection, A_row_has_all_its_findings_those_of_most_records_first) {
    RunReport report = smallReport();
    report.shapes.resize(30);
    report.records[0].findings = {};
    for (ShapePlace place = 30; place > 0; --place) {
        report.records[0].findings.push_back({place - 1, 1, 1});
    }
    const std::string text = sectionOf(report);
    EXPECT_TRUE(text.contains(
        "<td>made<td>#1 #2 #3 #4 #5 #6 #7 #8 #9 #10 #11 #12 #13 #14 #15 #16 #17 #18 #19 #20 #21 "
        "#22 #23 #24 #25 #26 #27 #28 #29 #30<td>"));
    EXPECT_FALSE(text.contains("There is no room"));
}

TEST(RecordsSection, Where_all_findings_have_no_room_each_row_has_its_first_and_the_page_says_so) {
    const std::string text = sectionOf(reportWithMoreFindingsThanRoom());
    EXPECT_TRUE(
        text.contains("<p class=\"remark\">There is no room for the numbers of all findings: "
                      "each record has its first 25, and is not found by another.</p>\n"));
    EXPECT_TRUE(text.contains("<th>a.met<td>not run<td>#1 #3<td>"));
    EXPECT_TRUE(text.contains(" #23 #24 #25 ...<td>"));
    EXPECT_FALSE(text.contains("#26"));
}

TEST(RecordsSection, Links_for_which_there_is_no_room_are_left_to_the_script) {
    RunReport report;
    report.products = {{"Html", std::string(2000, 'h') + "/", ".html", false},
                       {"Error", std::string(3000, 'e') + "/", ".err", false}};
    report.records.assign(2000, {.name = "a.met", .mpStem = "a"});
    const std::string text = sectionOf(report);
    EXPECT_TRUE(text.contains("h/a.html\">Html</a> \n<tr"));
    EXPECT_FALSE(text.contains("a.err"));
    EXPECT_TRUE(text.contains("There is no room for all links: each record leads to its first 1 "
                              "product. With its script this page leads to all."));
}

} // namespace
} // namespace tarnwick
