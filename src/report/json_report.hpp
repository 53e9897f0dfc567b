#pragma once

#include "report/report_sink.hpp"
#include "report/run_report.hpp"

#include <string_view>

namespace tarnwick {

// By this, near its beginning, such a report is known from other files.
inline constexpr std::string_view jsonMark = R"({"format": "tarnwick-run report)";

// The whole report as JSON, by docs/report.schema.json. UTF-8; what is no UTF-8 in a text becomes
// U+FFFD, all else stands there as it is.
void jsonReport(const RunReport& report, const ReportSink& sink);

} // namespace tarnwick
