#include "report/csv_report.hpp"

#include "report/escaping.hpp"
#include "report/report_words.hpp"

namespace tarnwick {
namespace {

void addLine(const ReportedRecord& record, std::string& text) {
    text.append(csvCell(record.name)).append(",").append(stateWord(record.state)).append(",");
    text.append(csvCell(record.why)).append(",");
    text.append(std::to_string(record.findings.size())).append(",");
    text.append(std::to_string(messagesOf(record))).append(",");
    text.append(record.calls.empty() ? "" : secondsText(secondsOf(record))).append(",");
    text.append(csvCell(callsText(record))).append("\r\n");
}

} // namespace

std::string csvReport(const RunReport& report) {
    std::string text = "\xEF\xBB\xBFrecord,state,why,shapes,messages,seconds,calls\r\n";
    for (const ReportedRecord& record : report.records) {
        addLine(record, text);
    }
    return text;
}

} // namespace tarnwick
