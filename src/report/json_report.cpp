#include "report/json_report.hpp"

#include "report/report_words.hpp"

#include <cstddef>
#include <functional>
#include <nlohmann/json.hpp>
#include <string_view>

namespace tarnwick {
namespace {

using Json = nlohmann::ordered_json;

// No text makes this fail: what is no UTF-8 becomes U+FFFD.
std::string dumped(const Json& value) {
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json totalsValue(const RunTotals& totals) {
    return {{"begun", totals.begun},
            {"seconds", sensibleSeconds(totals.seconds)},
            {"made", totals.made},
            {"upToDate", totals.upToDate},
            {"failed", totals.failed},
            {"notRun", totals.notRun},
            {"recordsWithFindings", totals.recordsWithFindings},
            {"messages", totals.messages}};
}

// Records and shapes are told by their names here, not by their places: a reader who leaves out a
// line, or sorts them, is not led to another one.
Json shapeValue(const RunReport& report, const Shape& shape) {
    Json examples = Json::array();
    for (const Example& example : shape.examples) {
        examples.push_back({{"record", report.records.at(example.record).name},
                            {"line", example.line},
                            {"text", example.text}});
    }
    return {{"text", shape.text},         {"records", shape.records},
            {"messages", shape.messages}, {"recordsBefore", shape.recordsBefore},
            {"common", shape.common},     {"examples", examples}};
}

Json recordValue(const ReportedRecord& record) {
    Json calls = Json::array();
    for (const ReportedCall& call : record.calls) {
        calls.push_back(
            {{"tool", call.tool}, {"code", call.code}, {"seconds", sensibleSeconds(call.seconds)}});
    }
    Json findings = Json::array();
    for (const Finding& finding : record.findings) {
        findings.push_back(
            {{"shape", finding.shape}, {"messages", finding.messages}, {"line", finding.line}});
    }
    return {{"name", record.name},      {"state", stateWord(record.state)},
            {"why", record.why},        {"calls", calls},
            {"findings", findings},     {"mpStem", record.mpStem},
            {"cnsStem", record.cnsStem}};
}

Json productValue(const ReportedProduct& product) {
    return {{"label", product.label},
            {"folder", product.folder},
            {"suffix", product.suffix},
            {"tool", product.ofCns ? "CNS" : "MP"}};
}

Json changeValue(const RunReport& report, const RecordChange& change) {
    return {{"record", report.records.at(change.record).name},
            {"appeared", change.appeared},
            {"gone", change.gone}};
}

// Of the text, roughly: most of it are records.
std::size_t expectedSize(const RunReport& report) {
    std::size_t size = 64UZ * 1024;
    for (const ReportedRecord& record : report.records) {
        size += 120 + record.name.size() + record.why.size() + record.mpStem.size() +
                record.cnsStem.size() + 50 * record.calls.size() + 45 * record.findings.size();
    }
    return size;
}

// A list, an entry on a line: only one entry at a time is held as a value, for a hundred thousand
// of them take ten times the memory of their text.
template <typename Entries, typename Value>
void addList(std::string_view name, const Entries& entries, const Value& value, std::string& text) {
    text.append(",\n\"").append(name).append("\": [");
    std::string_view between = "\n";
    for (const auto& entry : entries) {
        text.append(between).append(dumped(value(entry)));
        between = ",\n";
    }
    text.append("]");
}

} // namespace

std::string jsonReport(const RunReport& report) {
    std::string text;
    text.reserve(expectedSize(report)); // else it is twice in memory each time that it grows
    text.append(jsonMark).append(" 1\"");
    const auto add = [&](std::string_view name, const Json& value) {
        text.append(",\n\"").append(name).append("\": ").append(dumped(value));
    };
    add("definition", report.definition);
    add("made", report.made);
    add("totals", totalsValue(report.totals));
    add("findingsAreKnown", report.findingsAreKnown);
    add("hasRunBefore", report.hasRunBefore);
    add("remarks", report.remarks);
    addList("runs", report.runs, totalsValue, text);
    addList("products", report.products, productValue, text);
    addList("shapes", report.shapes, std::bind_front(shapeValue, std::cref(report)), text);
    addList("changes", report.changes, std::bind_front(changeValue, std::cref(report)), text);
    addList("records", report.records, recordValue, text);
    return text += "}\n";
}

} // namespace tarnwick
