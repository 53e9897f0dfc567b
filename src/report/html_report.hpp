#pragma once

#include "report/report_sink.hpp"
#include "report/run_report.hpp"

#include <string_view>

namespace tarnwick {

// By this, near its beginning, such a report is known from other files.
inline constexpr std::string_view htmlMark = R"(<meta name="generator" content="tarnwick-run">)";

// The report as a page: one file that needs no other and no network, and is readable without its
// script. UTF-8, whatever bytes the texts of the report are. Raises what `sink` raises.
void htmlReport(const RunReport& report, const ReportSink& sink);

} // namespace tarnwick
