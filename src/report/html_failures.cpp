#include "report/html_failures.hpp"

#include "report/escaping.hpp"
#include "report/html_links.hpp"
#include "report/html_parts.hpp"
#include "report/report_words.hpp"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tarnwick {
namespace {

constexpr std::size_t mostFailures = 1000;

// For the words of the messages, in bytes. Where they would take more, the numbers of their shapes
// stand alone, and lead to them.
constexpr std::size_t roomForMessages = 2'000'000;

// As the tool said it, where that is kept.
const std::string& wordsOf(const Shape& shape, RecordPlace record) {
    const auto example = std::ranges::find(shape.examples, record, &Example::record);
    return example == shape.examples.end() ? shape.text : example->text;
}

std::string said(const RunReport& report, RecordPlace place, bool withWords) {
    const ReportedRecord& record = report.records[place];
    if (record.findings.empty() || !report.findingsAreKnown) {
        return {};
    }
    const std::vector<Finding> shown = shownFindings(report, record);
    std::string text = "\n<ul class=\"said\">\n";
    for (const Finding& finding : shown) {
        const Shape& shape = report.shapes[finding.shape];
        text += "<li>" + shapeLink(finding.shape) +
                (withWords ? " <q>" + markupText(cutText(wordsOf(shape, place))) + "</q>" : "") +
                " <span>line " + grouped(finding.line);
        text += finding.messages == 1 ? "</span>\n"
                                      : ", " + grouped(finding.messages) + " messages</span>\n";
    }
    if (shown.size() < record.findings.size()) {
        text += "<li>And " + grouped(record.findings.size() - shown.size()) + " more.\n";
    }
    return text + "</ul>";
}

std::string left(const ReportedRecord& record, const std::vector<ProductLinks>& links) {
    std::string text;
    for (const ProductLinks& product : links) {
        text += product.of(record);
    }
    return text.empty() ? "" : "\n<p class=\"left\">" + text + "</p>";
}

std::string rows(const RunReport& report) {
    const std::vector<ProductLinks> links = productLinks(report, true);
    std::size_t shown = 0;
    std::size_t room = roomForMessages;
    std::string text;
    for (RecordPlace place = 0; place < report.records.size() && shown < mostFailures; ++place) {
        const ReportedRecord& record = report.records[place];
        if (record.state != ReportedRecord::State::Failed) {
            continue;
        }
        ++shown;
        std::string messages = said(report, place, true);
        if (messages.size() > room) {
            messages = said(report, place, false);
        } else {
            room -= messages.size();
        }
        text += "<tr><th scope=\"row\">" + recordLink(report, place) + "<td>" +
                markupText(cutText(record.why)) + messages + left(record, links) + "\n";
    }
    return text;
}

} // namespace

std::string failuresSection(const RunReport& report) {
    std::string text = sectionBegin("failures", "Failures", report.totals.failed);
    const std::string all = rows(report);
    if (all.empty()) {
        return text + "<p>No record failed.</p>\n</section>\n";
    }
    text += "<table class=\"failures\"><thead><tr><th scope=\"col\">Record<th "
            "scope=\"col\">Why, and what the tools said</thead><tbody>\n" +
            all + "</tbody></table>\n";
    return text + moreText(report.totals.failed, mostFailures, "failed record") + "</section>\n";
}

} // namespace tarnwick
