#include "report/csv_report.hpp"

#include "report/escaping.hpp"
#include "report/report_words.hpp"

#include <string>

namespace tarnwick {
namespace {

std::string lineOf(const RunReport& report, const ReportedRecord& record) {
    std::string text;
    const FindingCounts counts = findingsOf(report, record);
    text.append(csvCell(record.name)).append(",").append(stateWord(record.state)).append(",");
    text.append(csvCell(record.why)).append(",");
    const auto known = [&](std::uint64_t count) { // nothing is not 0
        return report.findingsAreKnown ? std::to_string(count) : "";
    };
    text.append(known(counts.shapes)).append(",").append(known(counts.messages)).append(",");
    text.append(record.calls.empty() ? "" : secondsText(secondsOf(record))).append(",");
    return text.append(csvCell(callsText(record))).append("\r\n");
}

} // namespace

void csvReport(const RunReport& report, const ReportSink& sink) {
    sink("\xEF\xBB\xBF" + std::string(csvMark) + "\r\n");
    for (const ReportedRecord& record : report.records) {
        sink(lineOf(report, record));
    }
}

} // namespace tarnwick
