#include "report/csv_report.hpp"

#include "report/escaping.hpp"
#include "report/report_words.hpp"

namespace tarnwick {
namespace {

void addLine(const RunReport& report, const ReportedRecord& record, std::string& text) {
    const FindingCounts counts = findingsOf(report, record);
    text.append(csvCell(record.name)).append(",").append(stateWord(record.state)).append(",");
    text.append(csvCell(record.why)).append(",");
    text.append(std::to_string(counts.shapes)).append(",");
    text.append(std::to_string(counts.messages)).append(",");
    text.append(record.calls.empty() ? "" : secondsText(secondsOf(record))).append(",");
    text.append(csvCell(callsText(record))).append("\r\n");
}

} // namespace

std::string csvReport(const RunReport& report) {
    std::string text = "\xEF\xBB\xBF" + std::string(csvMark) + "\r\n";
    for (const ReportedRecord& record : report.records) {
        addLine(report, record, text);
    }
    return text;
}

} // namespace tarnwick
