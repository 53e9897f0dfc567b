#pragma once

#include "report/report_sink.hpp"
#include "report/run_report.hpp"

#include <string_view>

namespace tarnwick {

// By this, near its beginning, such a report is known from other files.
inline constexpr std::string_view junitMark = "<testsuites";

// The report as JUnit XML for CI servers: a record is a case. One that failed is a failure there,
// one that has not run is skipped; messages, but for common ones, are what a case has said.
void junitReport(const RunReport& report, const ReportSink& sink);

} // namespace tarnwick
