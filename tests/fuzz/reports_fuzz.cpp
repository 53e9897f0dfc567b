// Any bytes as every text of a report: none breaks out of its place, and what a reader reads back
// is what was to be shown.

#include "reference/plain_escaping.hpp"
#include "report/csv_report.hpp"
#include "report/escaping.hpp"
#include "report/html_report.hpp"
#include "report/json_report.hpp"
#include "report/junit_report.hpp"
#include "require.hpp"
#include "support/report_texts.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tarnwick {
namespace {

std::string withoutApostrophes(std::string text) {
    std::erase(text, '\'');
    return text;
}

void tryEscaping(std::string_view text) {
    const std::string shown = shownText(text);
    require(reference::isTextOfOneLine(shown), "what is shown is one line of UTF-8");
    require(!reference::isTextOfOneLine(text) || shown.size() >= text.size(), "nothing is lost");

    const std::string markup = markupText(text);
    require(markup.find_first_of("<>\"'") == std::string::npos, "markup ends nothing");
    require(reference::withoutEntities(markup) == shown, "markup says what is shown");

    const auto cells = reference::cellsOf("a," + csvCell(text) + ",b");
    require(cells.size() == 3 && withoutApostrophes(cells[1]) == withoutApostrophes(shown),
            "a cell is one cell");
    // Whatever lies between cells for a spreadsheet, here or in another country.
    for (std::size_t begin = 0; begin != std::string::npos;
         begin = cells[1].find_first_of(";,", begin)) {
        begin = cells[1].find_first_not_of(" \";,", begin);
        require(begin == std::string::npos || !std::string_view("=+-@\t").contains(cells[1][begin]),
                "no cell is a formula");
    }

    const std::string part = linkPart(text);
    require(reference::withoutPercents(part) == text, "a link names the same bytes");
    require(part.find_first_of("/:?#\\ \"'<>&") == std::string::npos,
            "a part of a link is one part");

    const std::string link = reference::withoutEntities(folderLink(text));
    const std::string scheme = link.substr(0, link.find_first_of("/?#"));
    require(!scheme.contains(':') || scheme == "file:", "a link runs nothing");
    require(!link.starts_with("//") && !link.starts_with("/\\"), "a link asks no server");
}

std::size_t timesIn(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t place = 0; (place = text.find(part, place)) != std::string_view::npos;
         ++place) {
        ++count;
    }
    return count;
}

RunReport reportOf(const std::string& text) {
    RunReport report;
    report.definition = report.made = text;
    report.totals = {
        .begun = text, .made = 1, .failed = 1, .recordsWithFindings = 2, .messages = 2};
    report.runs = {report.totals};
    report.records = {{.name = text,
                       .state = ReportedRecord::State::Made,
                       .calls = {{text, 0, 1}},
                       .findings = {{0, 1, 1}},
                       .mpStem = text,
                       .cnsStem = text},
                      {.name = text,
                       .state = ReportedRecord::State::Failed,
                       .why = text,
                       .findings = {{0, 1, 1}}}};
    for (ReportedRecord& record : report.records) {
        record.messages.add({.shape = 0, .line = 1, .text = text});
    }
    report.products = {{text, text, text, false}, {text, text, text, true}};
    report.shapes = {{.text = text, .records = 2, .messages = 2, .examples = {{0, 1, text}}}};
    report.hasRunBefore = true;
    report.changes = {{0, {0}, {}}};
    report.remarks = {text};
    return report;
}

// As many of each sign of markup as with a text that has none.
void tryReports(const RunReport& report, const RunReport& plain) {
    const std::string page = textOf(htmlReport, report);
    const std::string plainPage = textOf(htmlReport, plain);
    const std::string cases = textOf(junitReport, report);
    const std::string plainCases = textOf(junitReport, plain);
    for (const std::string_view sign : {"<th", "<td", "<tr", "<a ", "<script", "</script",
                                        "<noscript", "</noscript", "<li", "<section", "<!--"}) {
        if (sign != "<a ") { // a record without a stem has no links
            require(timesIn(page, sign) == timesIn(plainPage, sign), "a page has no element more");
        }
    }
    require(timesIn(cases, "<") == timesIn(plainCases, "<"), "XML has no element more");
    require(!cases.contains("]]>"), "XML has no end of what never began");
    require(timesIn(textOf(csvReport, report), "\n") == report.records.size() + 1,
            "a record is a line");

    const std::string json = textOf(jsonReport, report);
    require(timesIn(json, "\n") == timesIn(textOf(jsonReport, plain), "\n"),
            "JSON has no line more");
    require(std::ranges::none_of(json, [](char c) { return c >= 0 && c < ' ' && c != '\n'; }),
            "JSON has no control character");
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    tarnwick::tryEscaping(text);
    static const tarnwick::RunReport plain = tarnwick::reportOf("a");
    tarnwick::tryReports(tarnwick::reportOf(text), plain);
    return 0;
}
