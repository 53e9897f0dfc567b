#include "report/html_failures.hpp"

#include "report/escaping.hpp"
#include "report/html_links.hpp"
#include "report/html_parts.hpp"
#include "report/report_words.hpp"

#include <cstddef>
#include <string_view>
#include <vector>

namespace tarnwick {
namespace {

// For the words of the messages, in bytes. Where they would take more, the numbers of their shapes
// stand alone, and lead to them.
constexpr std::size_t roomForMessages = 2'000'000;

// The first message of the shape as the tool said it; where that is not held, the shape, which
// nobody said and which is not quoted.
std::string wordsOf(const RunReport& report, RecordPlace place, ShapePlace shape) {
    const KeptMessages& messages = report.records[place].messages;
    for (std::size_t message = 0; message < messages.size(); ++message) {
        if (messages[message].shape == shape) {
            return "<q>" + markupText(cutText(messages[message].text)) + "</q>";
        }
    }
    return markupText(cutText(report.shapes[shape].text));
}

std::string said(const RunReport& report, RecordPlace place, const ShapeLinks& shapes,
                 bool withWords) {
    const ReportedRecord& record = report.records[place];
    if (record.findings.empty() || !report.findingsAreKnown) {
        return {};
    }
    const std::vector<Finding> shown = shownFindings(report, record);
    std::string text = "\n<ul class=\"said\">\n";
    for (const Finding& finding : shown) {
        text += "<li>" + shapes.of(finding.shape) +
                (withWords ? " " + wordsOf(report, place, finding.shape) : "") + " <span>line " +
                grouped(finding.line);
        text += finding.messages == 1
                    ? "</span>\n"
                    : ", the first of " + grouped(finding.messages) + " messages</span>\n";
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

std::string rows(const RunReport& report, const ShapeLinks& shapes) {
    const std::vector<ProductLinks> links = productLinks(report, true);
    std::size_t shown = 0;
    std::size_t room = roomForMessages;
    std::string text;
    for (RecordPlace place = 0; place < report.records.size() && shown < RunReport::mostFailures;
         ++place) {
        const ReportedRecord& record = report.records[place];
        if (record.state != ReportedRecord::State::Failed) {
            continue;
        }
        ++shown;
        std::string messages = said(report, place, shapes, true);
        if (messages.size() > room) {
            messages = said(report, place, shapes, false);
        } else {
            room -= messages.size();
        }
        text += "<tr><th scope=\"row\">" + recordLink(report, place) + "<td>" +
                markupText(cutText(record.why)) + messages + left(record, links) + "\n";
    }
    return text;
}

} // namespace

std::string failuresSection(const RunReport& report, const ShapeLinks& shapes) {
    std::string text = sectionBegin("failures", "Failures", report.totals.failed);
    const std::string all = rows(report, shapes);
    if (all.empty()) {
        return text + "<p>No record failed.</p>\n</section>\n";
    }
    text += "<table class=\"failures\"><thead><tr><th scope=\"col\">Record<th "
            "scope=\"col\">Why, and what the tools said</thead><tbody>\n" +
            all + "</tbody></table>\n";
    return text +
           moreText(report.totals.failed, RunReport::mostFailures, "failed record",
                    AllAreIn::JsonAndCsv) +
           "</section>\n";
}

} // namespace tarnwick
