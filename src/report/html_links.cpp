#include "report/html_links.hpp"

#include "report/escaping.hpp"
#include "report/html_parts.hpp"

#include <algorithm>
#include <cstdint>

namespace tarnwick {

std::string rowName(RecordPlace record) {
    return "r" + std::to_string(record + std::uint64_t{1});
}

std::string recordLink(const RunReport& report, RecordPlace record) {
    return "<a href=\"#" + rowName(record) + "\">" +
           markupText(cutText(report.records.at(record).name)) + "</a>";
}

ProductLinks::ProductLinks(const ReportedProduct& product)
    : product_(product),
      begin_("<a href=\"" + folderLink(product.folder)),
      end_(linkPart(product.suffix) + "\">" + markupText(cutText(product.label)) + "</a> ") {}

std::string ProductLinks::of(const ReportedRecord& record) const {
    const std::string& stem = product_.ofCns ? record.cnsStem : record.mpStem;
    return stem.empty() ? "" : begin_ + linkPart(stem) + end_;
}

std::vector<ProductLinks> productLinks(const RunReport& report, bool messagesFirst) {
    std::vector<ProductLinks> links;
    for (const bool first : {true, false}) {
        for (const ReportedProduct& product : report.products) {
            if ((messagesFirst && product.holdsMessages) == first) {
                links.emplace_back(product);
            }
        }
    }
    return links;
}

std::vector<Finding> shownFindings(const RunReport& report, const ReportedRecord& record) {
    std::vector<Finding> shown = record.findings;
    std::ranges::stable_partition(
        shown, [&](const Finding& finding) { return !report.shapes.at(finding.shape).common; });
    shown.resize(std::min(shown.size(), mostShapesOfRecord));
    return shown;
}

} // namespace tarnwick
