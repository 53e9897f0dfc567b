#include "report/html_records.hpp"

#include "report/escaping.hpp"
#include "report/html_links.hpp"
#include "report/html_parts.hpp"
#include "report/report_words.hpp"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tarnwick {
namespace {

// For the links that stand in the rows themselves. The script adds what has no room here.
constexpr std::size_t roomForLinks = 8'000'000;

// Of the products, from the first on, to which every record can have a link.
std::vector<ProductLinks> linkedProducts(const RunReport& report) {
    std::size_t room = roomForLinks;
    std::vector<ProductLinks> linked;
    for (const ProductLinks& links : productLinks(report, false)) {
        std::size_t needed = 0;
        for (const ReportedRecord& record : report.records) {
            needed += links.of(record).size();
        }
        if (needed > room) {
            break;
        }
        room -= needed;
        linked.push_back(links);
    }
    return linked;
}

// What the script takes for the stem of a record's products when the row says nothing else. It
// knows the name as it is shown.
std::string usualStem(const ReportedRecord& record) {
    const std::string shown = shownText(cutText(record.name));
    return linkPart(std::string_view(shown).substr(0, shown.rfind('.')));
}

std::string stemAttribute(std::string_view name, const std::string& stem,
                          const std::string& usual) {
    const std::string part = linkPart(stem);
    return part == usual ? "" : " data-" + std::string(name) + "=\"" + part + "\"";
}

std::string row(const RunReport& report, RecordPlace place, const std::vector<ProductLinks>& linked,
                const ListedFindings& listed) {
    const ReportedRecord& record = report.records[place];
    const std::string usual = usualStem(record);
    std::string text;
    text.append("<tr id=").append(rowName(place)); // a hundred thousand times: no marks around it
    text.append(record.state == ReportedRecord::State::Failed ? " class=\"f\"" : "");
    text.append(stemAttribute("m", record.mpStem, usual));
    text.append(stemAttribute("c", record.cnsStem, usual));
    text.append("><th>").append(markupText(cutText(record.name)));
    text.append("<td>").append(stateWord(record.state));
    text.append("<td>").append(listed.of(record));
    text.append("<td>").append(grouped(findingsOf(report, record).messages));
    text.append("<td>").append(record.calls.empty() ? "" : secondsText(secondsOf(record)));
    text.append("<td>");
    for (const ProductLinks& links : linked) {
        text.append(links.of(record));
    }
    return text += "\n";
}

std::string columns(bool asButtons) {
    std::string text = "<thead><tr>";
    for (const std::string_view name : {"Record", "State", "Findings", "Messages", "Seconds"}) {
        text.append("<th scope=\"col\">").append(asButtons ? "<button type=\"button\">" : "");
        text.append(name).append(asButtons ? "</button>" : "").append("</th>");
    }
    return text + "<th scope=\"col\">Products</th></tr></thead>";
}

std::string products(const RunReport& report) {
    if (report.products.empty()) {
        return {};
    }
    std::string text = "<p class=\"products\" id=\"products\">Folders of the products:\n";
    for (const ReportedProduct& product : report.products) {
        text += "<a href=\"" + folderLink(product.folder) + "\" data-suffix=\"" +
                linkPart(product.suffix) + "\" data-of=\"" + (product.ofCns ? "c" : "m") + "\">" +
                markupText(cutText(product.label)) + "</a>\n";
    }
    return text + "</p>\n";
}

// Hidden until the script is there, without which it would do nothing.
std::string controls() {
    return "<form class=\"controls\" id=\"controls\" role=\"search\" hidden>\n"
           "<label>Filter <input type=\"search\" id=\"filter\" autocomplete=\"off\" "
           "spellcheck=\"false\" placeholder=\"part of a name, or #12 for a finding\"></label>\n"
           "<label>State <select id=\"state\"><option value=\"\">any<option>made"
           "<option>up to date<option>failed<option>not run<option>with findings"
           "</select></label>\n"
           "<p id=\"shown\" role=\"status\" aria-live=\"polite\"></p>\n</form>\n"
           "<table class=\"records\" id=\"list\" aria-describedby=\"shown\" hidden>" +
           columns(true) +
           "<tbody></tbody></table>\n"
           "<p class=\"more\" hidden><button type=\"button\" id=\"more\">Show more</button> "
           "<span id=\"part\"></span></p>\n";
}

} // namespace

void recordsSection(const RunReport& report, const ListedFindings& listed, const ReportSink& sink) {
    const std::vector<ProductLinks> linked = linkedProducts(report);
    sink(sectionBegin("records", "All records", report.records.size()) + products(report));
    if (!listed.areAll()) {
        sink("<p class=\"remark\">There is no room for the numbers of all findings: each record "
             "has its first " +
             grouped(mostShapesOfRecord) + ", and is not found by another.</p>\n");
    }
    sink(controls() + "<noscript id=\"all\">");
    if (linked.size() < report.products.size()) {
        sink("<p class=\"remark\">There is no room for all links: each record leads to its first " +
             counted(linked.size(), "product") + ". With its script this page leads to all.</p>\n");
    }
    sink("<table class=\"records\">" + columns(false) + "<tbody>\n");
    for (RecordPlace place = 0; place < report.records.size(); ++place) {
        sink(row(report, place, linked, listed));
    }
    sink("</tbody></table></noscript>\n</section>\n");
}

} // namespace tarnwick
