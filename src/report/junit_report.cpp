#include "report/junit_report.hpp"

#include "report/escaping.hpp"
#include "report/report_words.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

using State = ReportedRecord::State;

std::string attribute(std::string_view name, std::string_view value) {
    return " " + std::string(name) + "=\"" + markupText(value) + "\"";
}

// A line for each: "line 3: Error (line 12): ...". What nearly every record has says nothing of
// this one, unless it has failed.
std::string messagesText(const RunReport& report, const ReportedRecord& record) {
    std::string text;
    const bool failed = record.state == State::Failed; // then it may be what failed all of them
    for (std::size_t place = 0; place < record.messages.size(); ++place) {
        const auto [shape, line, message] = record.messages[place];
        if (failed || !report.shapes.at(shape).common) {
            text.append("line ").append(std::to_string(line)).append(": ");
            text.append(markupText(message)).append("\n");
        }
    }
    if (record.messagesLeftOut > 0) {
        text += "And " + counted(record.messagesLeftOut, "message") + " more.\n";
    }
    return text;
}

std::string caseText(const RunReport& report, const ReportedRecord& record) {
    std::string text = "<testcase" + attribute("classname", report.definition) +
                       attribute("name", record.name) +
                       attribute("time", secondsText(secondsOf(record))) + ">\n";
    if (record.state == State::Failed) {
        return text + "<failure" + attribute("message", record.why) + ">" + markupText(record.why) +
               "\n" + messagesText(report, record) + "</failure>\n</testcase>\n";
    }
    if (record.state == State::NotRun) {
        text += "<skipped/>\n";
    }
    const std::string messages = messagesText(report, record);
    if (!messages.empty()) {
        text += "<system-out>" + messages + "</system-out>\n";
    }
    return text + "</testcase>\n";
}

std::string remarksText(const RunReport& report) {
    std::string text;
    for (const std::string& remark : report.remarks) {
        text += markupText(remark) + "\n";
    }
    return text;
}

} // namespace

void junitReport(const RunReport& report, const ReportSink& sink) {
    const std::string counts = attribute("tests", std::to_string(report.records.size())) +
                               attribute("failures", std::to_string(report.totals.failed)) +
                               attribute("errors", "0");
    sink("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + std::string(junitMark) + counts +
         ">\n<testsuite" + attribute("name", report.definition) + counts +
         attribute("skipped", std::to_string(report.totals.notRun)) +
         attribute("time", secondsText(report.totals.seconds)) +
         attribute("timestamp", report.totals.begun) + ">\n");
    for (const ReportedRecord& record : report.records) {
        sink(caseText(report, record));
    }
    if (!report.remarks.empty()) {
        sink("<system-err>" + remarksText(report) + "</system-err>\n");
    }
    sink("</testsuite>\n</testsuites>\n");
}

} // namespace tarnwick
