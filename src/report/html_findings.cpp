#include "report/html_findings.hpp"

#include "report/escaping.hpp"
#include "report/html_links.hpp"
#include "report/html_parts.hpp"
#include "report/report_words.hpp"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tarnwick {
namespace {

constexpr std::size_t mostNames = 100; // of the records that have one shape
constexpr std::size_t mostChanges = 1000;
constexpr std::size_t mostShapesOfChange = 25;

// For the names of the records of all shapes, in bytes.
constexpr std::size_t roomForNames = 2'000'000;

// The first records of each shape that has a row.
using RecordsOfShapes = std::vector<std::vector<RecordPlace>>;
RecordsOfShapes recordsOfShapes(const RunReport& report, const ShapeLinks& links) {
    RecordsOfShapes records(report.shapes.size());
    for (RecordPlace place = 0; place < report.records.size(); ++place) {
        for (const Finding& finding : report.records[place].findings) {
            if (links.hasRow(finding.shape) && records.at(finding.shape).size() < mostNames) {
                records[finding.shape].push_back(place);
            }
        }
    }
    return records;
}

std::string nameItem(const RunReport& report, RecordPlace record) {
    return "<li>" + recordLink(report, record) + "\n";
}

// Leaves each shape as many of its records as have room if all shapes name equally many.
void cutToRoom(RecordsOfShapes& records, const RunReport& report) {
    std::size_t room = roomForNames;
    for (std::size_t count = 0; count < mostNames; ++count) {
        std::size_t needed = 0;
        for (const std::vector<RecordPlace>& some : records) {
            needed += count < some.size() ? nameItem(report, some[count]).size() : 0;
        }
        if (needed > room) {
            for (std::vector<RecordPlace>& some : records) {
                some.resize(std::min(some.size(), count));
            }
            return;
        }
        room -= needed;
    }
}

std::string examples(const RunReport& report, const Shape& shape) {
    std::string text = "<ul class=\"examples\">\n";
    for (const Example& example : shape.examples) {
        text += "<li><q>" + markupText(cutText(example.text)) + "</q> <span>" +
                recordLink(report, example.record) + ", line " + grouped(example.line) +
                "</span>\n";
    }
    return text + "</ul>\n";
}

// Where not all rows name the shape, the list finds fewer than there are: nothing leads there.
std::string showLink(const Shape& shape, ShapePlace place, const ListedFindings& listed) {
    if (!listed.canFind(place)) {
        return {};
    }
    const std::string number = shapeNumber(place);
    return R"(<p class="show"><a href="#records" data-show=")" + number + "\">" +
           (shape.records == 1 ? "Find it" : "Find all " + grouped(shape.records)) +
           " among the records</a> (in the column Findings: " + number + ")</p>\n";
}

std::string names(const RunReport& report, const Shape& shape,
                  const std::vector<RecordPlace>& records) {
    if (records.empty()) { // there is room for none
        return {};
    }
    std::string text = "<ul class=\"names\">\n";
    for (const RecordPlace record : records) {
        text += nameItem(report, record);
    }
    text += "</ul>\n";
    if (records.size() < shape.records) {
        text += "<p class=\"more\">And " + grouped(shape.records - records.size()) + " more.</p>\n";
    }
    return text;
}

std::string change(const RunReport& report, const Shape& shape) {
    if (!report.hasRunBefore || shape.records == shape.recordsBefore) {
        return "";
    }
    if (shape.recordsBefore == 0) {
        return "<strong>new</strong>";
    }
    return shape.records > shape.recordsBefore
               ? "+" + grouped(shape.records - shape.recordsBefore)
               : "\u2212" + grouped(shape.recordsBefore - shape.records);
}

std::string row(const RunReport& report, ShapePlace place, const std::vector<RecordPlace>& records,
                const ListedFindings& listed) {
    const Shape& shape = report.shapes[place];
    const std::string number = shapeNumber(place);
    std::string text = "<tr id=\"s" + number.substr(1) + R"("><td class="number">)" + number +
                       "<th scope=\"row\"><details><summary>" + markupText(cutText(shape.text)) +
                       "</summary>\n" + examples(report, shape) + names(report, shape, records) +
                       showLink(shape, place, listed) + "</details>" +
                       barCell(shape.records, report.records.size()) + numberCell(shape.records) +
                       numberCell(shape.messages);
    if (report.hasRunBefore) {
        text += "<td class=\"number\">" + change(report, shape);
    }
    return text + "\n";
}

std::string table(const RunReport& report, std::string_view rows) {
    std::string text = "<table class=\"findings\"><thead><tr><th scope=\"col\" class=\"number\">No."
                       "<th scope=\"col\">Message<td class=\"bar\">"
                       "<th scope=\"col\" class=\"number\">Records"
                       "<th scope=\"col\" class=\"number\">Messages";
    text += report.hasRunBefore ? R"(<th scope="col" class="number">Change)" : "";
    return text.append("</thead><tbody>\n").append(rows).append("</tbody></table>\n");
}

// "#1 Error (line #): ..." in a list, of each shape that `wanted` holds for.
template <typename Wanted>
std::string shapeList(const RunReport& report, const ShapeLinks& links, std::string_view heading,
                      const Wanted& wanted) {
    std::string list;
    std::size_t count = 0;
    for (ShapePlace place = 0; place < report.shapes.size(); ++place) {
        const Shape& shape = report.shapes[place];
        if (!wanted(shape) || ++count > mostShapes) {
            continue;
        }
        list += "<li>" + links.of(place) + " " + markupText(cutText(shape.text)) + " <span>" +
                counted(std::max(shape.records, shape.recordsBefore), "record") + "</span>\n";
    }
    const std::string text = "<h3>" + std::string(heading) + ": " + grouped(count) + "</h3>\n";
    return list.empty() ? text
                        : text + "<ul class=\"shapes\">\n" + list + "</ul>\n" +
                              moreText(count, mostShapes, "message", AllAreIn::Json);
}

std::string shapeCell(const std::vector<ShapePlace>& places, const ShapeLinks& links) {
    const std::size_t shown = std::min(places.size(), mostShapesOfChange);
    std::string text;
    for (std::size_t index = 0; index < shown; ++index) {
        text.append(text.empty() ? "" : " ").append(links.of(places[index]));
    }
    return shown == places.size() ? text
                                  : text + " and " + grouped(places.size() - shown) + " more";
}

std::string changedRecords(const RunReport& report, const ShapeLinks& links) {
    std::string text =
        "<h3>Records with new or gone messages: " + grouped(report.changes.size()) + "</h3>\n";
    if (report.changes.empty()) {
        return text;
    }
    text += "<table class=\"changes\"><thead><tr><th scope=\"col\">Record<th scope=\"col\">New"
            "<th scope=\"col\">Gone</thead><tbody>\n";
    for (std::size_t place = 0; place < std::min(report.changes.size(), mostChanges); ++place) {
        const RecordChange& each = report.changes[place];
        text += "<tr><th scope=\"row\">" + recordLink(report, each.record) + "<td>" +
                shapeCell(each.appeared, links) + "<td>" + shapeCell(each.gone, links) + "\n";
    }
    return text + "</tbody></table>\n" +
           moreText(report.changes.size(), mostChanges, "record", AllAreIn::Json);
}

} // namespace

std::string findingsSection(const RunReport& report, const PageLinks& links) {
    RecordsOfShapes records = recordsOfShapes(report, links.shapes);
    cutToRoom(records, report);
    std::string rows;
    std::string commonRows;
    std::size_t common = 0;
    std::size_t others = 0;
    for (ShapePlace place = 0; place < report.shapes.size(); ++place) {
        const Shape& shape = report.shapes[place];
        if (shape.records == 0) {
            continue;
        }
        ++(shape.common ? common : others);
        if (links.shapes.hasRow(place)) {
            (shape.common ? commonRows : rows) += row(report, place, records[place], links.listed);
        }
    }
    std::string text = sectionBegin("findings", "Findings", others);
    text += others == 0 && common == 0 ? "<p>The tools found nothing.</p>\n" : "";
    if (others > 0) {
        text += table(report, rows) + moreText(others, mostShapes, "message", AllAreIn::Json);
    }
    if (common > 0) {
        text += "<details class=\"common\"><summary>" + counted(common, "message") +
                " that nearly every record has</summary>\n" + table(report, commonRows) +
                moreText(common, mostShapes, "message", AllAreIn::Json) + "</details>\n";
    }
    return text + "</section>\n";
}

std::string changesSection(const RunReport& report, const ShapeLinks& links) {
    if (!report.hasRunBefore) {
        return {};
    }
    return sectionBegin("changes", "New and gone since the run before") +
           shapeList(
               report, links, "new",
               [](const Shape& shape) { return shape.records > 0 && shape.recordsBefore == 0; }) +
           shapeList(
               report, links, "gone",
               [](const Shape& shape) { return shape.records == 0 && shape.recordsBefore > 0; }) +
           changedRecords(report, links) + "</section>\n";
}

} // namespace tarnwick
