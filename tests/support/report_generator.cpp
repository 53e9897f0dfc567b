#include "support/report_generator.hpp"

#include "report/report_words.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

using State = ReportedRecord::State;
using namespace std::string_literals;

// A number that looks like chance and is none (splitmix64).
std::uint64_t mixed(std::uint64_t number) {
    number += 0x9E3779B97F4A7C15U;
    number = (number ^ number >> 30U) * 0xBF58476D1CE4E5B9U;
    number = (number ^ number >> 27U) * 0x94D049BB133111EBU;
    return number ^ number >> 31U;
}

std::string padded(std::size_t number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

std::vector<ReportedProduct> threeProducts() {
    return {{"Html", "../products/html/", ".html", false, false},
            {"Error", "../products/errors/", ".err", false, true},
            {"Leftovers", "../products/left%20overs/", ".left", true, true}};
}

constexpr std::array<std::string_view, 8> sentences{
    "Error (line #): \"…\" is no date",
    "Warning (line #): … is empty",
    "Error (line #): element … must follow …",
    "Error (line #): no such theme keyword: \"…\"",
    "Warning (line #): … is not in the list of …",
    "Error (line #): West_Bounding_Coordinate # is out of range",
    "Note: … was read as …",
    "Error (line #): unknown element …"};

constexpr ShapePlace commonShape = 40;

std::vector<Shape> fortyShapes() {
    std::vector<Shape> shapes(commonShape + 1);
    for (std::size_t place = 0; place < commonShape; ++place) {
        shapes[place].text = sentences[place % sentences.size()];
        shapes[place].text +=
            place < sentences.size() ? "" : " in section #, " + std::to_string(place / 8);
    }
    shapes[commonShape].text = "# errors in # elements";
    shapes[commonShape].common = true;
    return shapes;
}

void find(ShapePlace place, std::uint32_t messages, RecordPlace record, RunReport& report) {
    Shape& shape = report.shapes[place];
    if (std::ranges::any_of(report.records[record].findings,
                            [&](const Finding& finding) { return finding.shape == place; })) {
        return;
    }
    ++shape.records;
    shape.messages += messages;
    const auto line = static_cast<std::uint32_t>(3 + 7 * report.records[record].findings.size());
    report.records[record].findings.push_back({place, messages, line});
    for (std::uint32_t more = 0; more < messages; ++more) {
        report.records[record].messages.add(
            {.shape = place,
             .line = line + more,
             .text = shape.text + " (" + report.records[record].name + ")"});
    }
    report.records[record].messages.finish();
    if (shape.examples.size() < Shape::mostExamples) {
        shape.examples.push_back(
            {record, line, shape.text + " (" + report.records[record].name + ")"});
    }
}

ReportedRecord generatedRecord(std::size_t number) {
    const std::uint64_t chance = mixed(number);
    ReportedRecord record;
    const std::string stem = "survey of tides " + padded(number, 6);
    record.name = stem + ".met";
    record.state = chance % 100 == 0    ? State::Failed
                   : chance % 1000 == 7 ? State::NotRun
                   : chance % 100 < 30  ? State::Made
                                        : State::UpToDate;
    if (record.state == State::NotRun) {
        return record;
    }
    const double seconds =
        static_cast<double>(chance % 977) / 1000 * static_cast<double>(1 + chance % 7);
    record.calls = {{"CNS", 0, seconds / 10},
                    {"MP", record.state == State::Failed ? 2 : 0, seconds}};
    if (record.state == State::Failed && number % 2 == 0) {
        record.why = "the tools say \"Error (line 3): no such theme keyword: \"tides\"\"";
    } else if (record.state == State::Failed) {
        record.why = "MP ended with status 2: no element: Bounding_" + std::to_string(chance % 13);
        return record;
    }
    record.mpStem = record.cnsStem = stem;
    return record;
}

RunTotals totalsOf(const RunReport& report) {
    RunTotals totals{.begun = "2026-11-22T02:24:48Z", .seconds = 754};
    for (const ReportedRecord& record : report.records) {
        totals.made += record.state == State::Made ? 1 : 0;
        totals.upToDate += record.state == State::UpToDate ? 1 : 0;
        totals.failed += record.state == State::Failed ? 1 : 0;
        totals.notRun += record.state == State::NotRun ? 1 : 0;
        const FindingCounts counts = findingsOf(report, record);
        totals.recordsWithFindings += counts.shapes == 0 ? 0U : 1U;
        totals.messages += counts.messages;
    }
    return totals;
}

std::vector<RunTotals> fiftyRuns(const RunTotals& last) {
    std::vector<RunTotals> runs(RunReport::mostRuns, last);
    for (std::size_t place = 0; place + 1 < runs.size(); ++place) {
        const std::size_t left = runs.size() - 1 - place;
        RunTotals& run = runs[place];
        run.begun = (place < 19 ? "2026-10-"s + padded(place + 12, 2)
                                : "2026-11-"s + padded(place - 18 > 30 ? 30 : place - 18, 2)) +
                    "T02:00:00Z";
        run.failed += last.failed * (left + mixed(place) % 9) / 30;
        run.recordsWithFindings += last.recordsWithFindings * left / 90;
        run.messages += last.messages * (left + mixed(place) % 5) / 40;
    }
    return runs;
}

void sortShapes(RunReport& report) {
    std::vector<ShapePlace> order(report.shapes.size());
    for (ShapePlace place = 0; place < order.size(); ++place) {
        order[place] = place;
    }
    std::ranges::sort(order, [&](ShapePlace one, ShapePlace other) {
        const std::uint32_t few = report.shapes[one].records;
        const std::uint32_t many = report.shapes[other].records;
        return few != many ? few > many : one < other;
    });
    std::vector<Shape> sorted;
    std::vector<ShapePlace> placeOf(order.size());
    for (const ShapePlace place : order) {
        placeOf[place] = static_cast<ShapePlace>(sorted.size());
        sorted.push_back(std::move(report.shapes[place]));
    }
    report.shapes = std::move(sorted);
    for (ReportedRecord& record : report.records) {
        for (Finding& finding : record.findings) {
            finding.shape = placeOf[finding.shape];
        }
        record.messages.moveShapes(placeOf);
    }
}

void compareWithTheRunBefore(RunReport& report) {
    report.hasRunBefore = true;
    for (ShapePlace place = 0; place < report.shapes.size(); ++place) {
        Shape& shape = report.shapes[place];
        shape.recordsBefore = place == 3 ? 0 : shape.records + place % 3;
    }
    report.shapes.push_back({.text = "Error: … cannot be read", .recordsBefore = 1});
    const auto gone = static_cast<ShapePlace>(report.shapes.size() - 1);
    for (RecordPlace record = 0; record < report.records.size(); record += 997) {
        report.changes.push_back(
            {record, {3}, record == 0 ? std::vector{gone} : std::vector<ShapePlace>{}});
    }
}

// Shapes, places and names for a report of texts that somebody chose.
RunReport reportOf(const std::vector<std::string>& texts) {
    RunReport report;
    report.definition = texts.front();
    report.made = "2026-11-22T02:37:22Z";
    report.hasRunBefore = true;
    report.remarks = texts;
    for (const std::string& text : texts) {
        const auto place = static_cast<RecordPlace>(report.records.size());
        ReportedRecord record{
            .name = text + " " + std::to_string(place) + ".met",
            .state = place % 2 == 0 ? State::Made : State::Failed,
            .why = place % 2 == 0 ? "" : text,
            .calls = {{"MP", place % 2 == 0 ? std::int64_t{0} : std::int64_t{-1073741510}, 0.25}},
            .findings = {{place, 1, 3}},
            .mpStem = text + " " + std::to_string(place),
            .cnsStem = text};
        record.messages.add({.shape = place, .line = 3, .text = text});
        report.shapes.push_back({.text = text,
                                 .records = 1,
                                 .messages = 1,
                                 .recordsBefore = place % 3 == 0 ? 0U : 1U,
                                 .examples = {{place, 3, text}},
                                 .common = place % 5 == 4});
        report.changes.push_back({place, {place}, {}});
        report.records.push_back(std::move(record));
        report.products.push_back({text, text, text, place % 2 == 1, place % 3 == 0});
    }
    report.totals = totalsOf(report);
    report.runs = {report.totals};
    report.runs.front().begun = texts.back();
    return report;
}

} // namespace

RunReport generatedReport(std::size_t records) {
    RunReport report;
    report.definition = "nightly.ini";
    report.made = "2026-11-22T02:37:22Z";
    report.products = threeProducts();
    report.shapes = fortyShapes();
    report.remarks = {"Share 2 of 4 is still at work."};
    report.records.reserve(records);
    for (std::size_t number = 0; number < records; ++number) {
        report.records.push_back(generatedRecord(number));
        const auto place = static_cast<RecordPlace>(number);
        if (report.records.back().mpStem.empty()) {
            continue;
        }
        const std::uint64_t chance = mixed(number * 31);
        for (std::uint64_t more = chance % 4; more < 3; ++more) {
            const std::uint64_t which = mixed(chance + more);
            find(static_cast<ShapePlace>(which % commonShape * (which % 7) / 7),
                 static_cast<std::uint32_t>(1 + which % 3), place, report);
        }
        find(commonShape, 1, place, report);
    }
    sortShapes(report);
    compareWithTheRunBefore(report);
    report.totals = totalsOf(report);
    report.runs = fiftyRuns(report.totals);
    return report;
}

RunReport smallReport() {
    RunReport report;
    report.definition = "nightly.ini";
    report.made = "2026-11-22T02:37:22Z";
    report.hasRunBefore = true;
    report.remarks = {"Share 2 of 4 is still at work."};
    report.products = threeProducts();
    report.shapes = {
        {.text = "Error (line #): \"…\" is no date",
         .records = 1,
         .messages = 2,
         .recordsBefore = 0,
         .examples = {{0, 3, "Error (line 3): \"soon\" is no date"}}},
        {.text = "# errors", .records = 1, .messages = 1, .recordsBefore = 1, .common = true},
        {.text = "… is empty", .recordsBefore = 1}};
    report.records = {{.name = "lakes & rivers.met",
                       .state = State::Made,
                       .calls = {{"CNS", 0, 0.002}, {"MP", 0, 0.0135}},
                       .findings = {{0, 2, 3}, {1, 1, 9}},
                       .mpStem = "lakes & rivers",
                       .cnsStem = "lakes & rivers"},
                      {.name = "tide.stations.met",
                       .state = State::UpToDate,
                       .calls = {{"MP", 0, 1.5}},
                       .mpStem = "tide.stations",
                       .cnsStem = ""},
                      {.name = "wells.met",
                       .state = State::Failed,
                       .why = "MP ended with status 2: no element: \"West\"",
                       .calls = {{"MP", 2, 0.5}}}};
    KeptMessages& said = report.records[0].messages;
    said.add({.shape = 0, .line = 3, .text = "Error (line 3): \"soon\" is no date"});
    said.add({.shape = 1, .line = 9, .text = "2 errors"});
    said.add({.shape = 0, .line = 301, .text = "Error (line 7): \"late\" is no date"});
    report.records[0].messagesLeftOut = 12;
    report.changes = {{0, {0}, {2}}};
    report.totals = totalsOf(report);
    report.runs = {report.totals, report.totals};
    report.runs.front().begun = "2026-11-21T02:24:48Z";
    report.runs.front().failed = 2;
    return report;
}

RunReport hostileReport() {
    return reportOf(
        {"<script>document.title='broken'</script>",
         "</script><img src=x onerror=document.title='broken'>",
         "\"'><b onmouseover=\"document.title='broken'\">",
         "</noscript></table></details><h1>broken</h1>", "nul\0 and \x1B[31m red \x7F"s,
         "half \xC3, alone \xBF, pair \xED\xA0\x80, long \xC0\xAF, end \xF4\x90\x80\x80",
         "=cmd|' /C calc'!A0", "+1", "-1", "@SUM(A1)", "\ttab first", "\rreturn first",
         "]]><broken/><![CDATA[", "javascript:document.title='broken'",
         "\x01javascript:document.title='broken'", "data:text/html,<script>alert(1)</script>",
         "<!--", "-->", "&lt;&amp;&#0;", "$& $1 %s {0} @REPORT@",
         "a,b;c\"d\"\"e\nnext line\r\nand next",
         // NOLINTNEXTLINE(misc-misleading-bidirectional): the sign that turns a text, on purpose
         "no char \xEF\xBF\xBE\xEF\xBF\xBF, turned \xE2\x80\xAE exe",
         "marks \xE2\x80\xA8\xE2\x80\xA9", "../../etc/passwd", "//elsewhere.example/x",
         "C:\\in\\a?b#c%41.met", std::string(1U << 20U, 'M')});
}

} // namespace tarnwick
