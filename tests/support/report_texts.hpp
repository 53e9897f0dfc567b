#pragma once

#include "report/report_sink.hpp"
#include "report/reports.hpp"
#include "report/run_report.hpp"

#include <string>

namespace tarnwick {

// All that a report's writer gives, in one piece.
[[nodiscard]] inline std::string
textOf(void (*write)(const RunReport& report, const ReportSink& sink), const RunReport& report) {
    std::string text;
    write(report, [&](std::string_view piece) { text += piece; });
    return text;
}

[[nodiscard]] inline std::string reportText(ReportKind kind, const RunReport& report) {
    std::string text;
    writeReport(kind, report, [&](std::string_view piece) { text += piece; });
    return text;
}

} // namespace tarnwick
