#pragma once

#include "report/run_report.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// By this, near its beginning, such a report is known from other files.
inline constexpr std::string_view junitMark = "<testsuites";

// The report as JUnit XML for CI servers: a record is a case. One that failed is a failure there,
// one that has not run is skipped; findings are what a case that passed has said.
[[nodiscard]] std::string junitReport(const RunReport& report);

} // namespace tarnwick
