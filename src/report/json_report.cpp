#include "report/json_report.hpp"

#include "report/report_words.hpp"

#include <cstddef>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>

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
            {"common", shape.common},     {"examples", std::move(examples)}};
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
    Json messages = Json::array();
    for (std::size_t place = 0; place < record.messages.size(); ++place) {
        const auto [shape, line, text] = record.messages[place];
        messages.push_back({{"line", line}, {"shape", shape}, {"text", text}});
    }
    return {{"name", record.name},
            {"state", stateWord(record.state)},
            {"why", record.why},
            {"calls", std::move(calls)},
            {"findings", std::move(findings)},
            {"messages", std::move(messages)},
            {"messagesLeftOut", record.messagesLeftOut},
            {"mpStem", record.mpStem},
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

// A list, an entry on a line: only one entry at a time is held as a value, for a hundred thousand
// of them take ten times the memory of their text.
template <typename Entries, typename Value>
void writeList(std::string_view name, const Entries& entries, const Value& value,
               const ReportSink& sink) {
    sink(",\n\"" + std::string(name) + "\": [");
    std::string_view between = "\n";
    for (const auto& entry : entries) {
        sink(between);
        sink(dumped(value(entry)));
        between = ",\n";
    }
    sink("]");
}

} // namespace

void jsonReport(const RunReport& report, const ReportSink& sink) {
    sink(std::string(jsonMark) + " 1\"");
    const auto add = [&](std::string_view name, const Json& value) {
        sink(",\n\"" + std::string(name) + "\": " + dumped(value));
    };
    add("definition", report.definition);
    add("made", report.made);
    add("totals", totalsValue(report.totals));
    add("findingsAreKnown", report.findingsAreKnown);
    add("hasRunBefore", report.hasRunBefore);
    add("remarks", report.remarks);
    writeList("runs", report.runs, totalsValue, sink);
    writeList("products", report.products, productValue, sink);
    writeList("shapes", report.shapes, std::bind_front(shapeValue, std::cref(report)), sink);
    writeList("changes", report.changes, std::bind_front(changeValue, std::cref(report)), sink);
    writeList("records", report.records, recordValue, sink);
    sink("}\n");
}

} // namespace tarnwick
