#include "report/junit_report.hpp"

#include "report/escaping.hpp"
#include "report/report_words.hpp"

#include <string_view>

namespace tarnwick {
namespace {

using State = ReportedRecord::State;

std::string attribute(std::string_view name, std::string_view value) {
    return " " + std::string(name) + "=\"" + markupText(value) + "\"";
}

// A line for each shape: "line 3: Error (line #): ... (2 messages)".
std::string findingsText(const RunReport& report, const ReportedRecord& record) {
    std::string text;
    for (const Finding& finding : record.findings) {
        text.append("line ").append(std::to_string(finding.line)).append(": ");
        text.append(markupText(report.shapes.at(finding.shape).text));
        text.append(finding.messages == 1
                        ? "\n"
                        : " (" + std::to_string(finding.messages) + " messages)\n");
    }
    return text;
}

std::string caseText(const RunReport& report, const ReportedRecord& record) {
    std::string text = "<testcase" + attribute("classname", report.definition) +
                       attribute("name", record.name) +
                       attribute("time", secondsText(secondsOf(record))) + ">\n";
    if (record.state == State::Failed) {
        return text + "<failure" + attribute("message", record.why) + ">" + markupText(record.why) +
               "\n" + findingsText(report, record) + "</failure>\n</testcase>\n";
    }
    if (record.state == State::NotRun) {
        text += "<skipped/>\n";
    }
    if (!record.findings.empty()) {
        text += "<system-out>" + findingsText(report, record) + "</system-out>\n";
    }
    return text + "</testcase>\n";
}

} // namespace

std::string junitReport(const RunReport& report) {
    const std::string counts = attribute("tests", std::to_string(report.records.size())) +
                               attribute("failures", std::to_string(report.totals.failed)) +
                               attribute("errors", "0");
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + std::string(junitMark) +
                       counts + ">\n<testsuite" + attribute("name", report.definition) + counts +
                       attribute("skipped", std::to_string(report.totals.notRun)) +
                       attribute("time", secondsText(report.totals.seconds)) +
                       attribute("timestamp", report.totals.begun) + ">\n";
    for (const ReportedRecord& record : report.records) {
        text += caseText(report, record);
    }
    return text += "</testsuite>\n</testsuites>\n";
}

} // namespace tarnwick
