#include "report/html_links.hpp"

#include "report/escaping.hpp"
#include "report/html_parts.hpp"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace tarnwick {
namespace {

std::vector<ShapePlace> shapesInOrder(const ReportedRecord& record) {
    std::vector<ShapePlace> places;
    places.reserve(record.findings.size());
    std::ranges::transform(record.findings, std::back_inserter(places), &Finding::shape);
    std::ranges::sort(places);
    return places;
}

std::size_t roomOfAll(const RunReport& report) {
    std::size_t needed = 0;
    for (const ReportedRecord& record : report.records) {
        for (const Finding& finding : record.findings) {
            needed += shapeNumber(finding.shape).size() + 1;
        }
    }
    return needed;
}

} // namespace

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

std::string shapeNumber(ShapePlace place) {
    return "#" + std::to_string(place + std::uint64_t{1});
}

ShapeLinks::ShapeLinks(const RunReport& report) {
    std::size_t common = 0;
    std::size_t others = 0;
    for (const Shape& shape : report.shapes) {
        std::size_t& rows = shape.common ? common : others;
        hasRow_.push_back(shape.records > 0 && ++rows <= mostShapes);
    }
}

std::string ShapeLinks::of(ShapePlace place) const {
    const std::string number = shapeNumber(place);
    return hasRow(place) ? "<a href=\"#s" + number.substr(1) + "\">" + number + "</a>" : number;
}

std::vector<Finding> shownFindings(const RunReport& report, const ReportedRecord& record) {
    std::vector<Finding> shown = record.findings;
    std::ranges::stable_partition(
        shown, [&](const Finding& finding) { return !report.shapes.at(finding.shape).common; });
    shown.resize(std::min(shown.size(), mostShapesOfRecord));
    return shown;
}

ListedFindings::ListedFindings(const RunReport& report) {
    if (roomOfAll(report) <= roomForShapes) {
        return;
    }
    missing_.resize(report.shapes.size());
    for (const ReportedRecord& record : report.records) {
        const std::vector<ShapePlace> places = shapesInOrder(record);
        for (std::size_t index = mostShapesOfRecord; index < places.size(); ++index) {
            missing_.at(places[index]) = true;
        }
    }
}

std::string ListedFindings::of(const ReportedRecord& record) const {
    const std::vector<ShapePlace> places = shapesInOrder(record);
    const std::size_t listed =
        areAll() ? places.size() : std::min(places.size(), mostShapesOfRecord);
    std::string text;
    for (std::size_t index = 0; index < listed; ++index) {
        text.append(text.empty() ? "" : " ").append(shapeNumber(places[index]));
    }
    return listed == places.size() ? text : text + " ...";
}

} // namespace tarnwick
