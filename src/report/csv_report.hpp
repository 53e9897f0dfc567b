#pragma once

#include "report/report_sink.hpp"
#include "report/run_report.hpp"

#include <string_view>

namespace tarnwick {

// By this, near its beginning, such a report is known from other files.
inline constexpr std::string_view csvMark = "record,state,why,shapes,messages,seconds,calls";

// A line for each record, under a line of headings: RFC 4180, in UTF-8 with a byte order mark, by
// which spreadsheets know it. No cell is a formula.
void csvReport(const RunReport& report, const ReportSink& sink);

} // namespace tarnwick
