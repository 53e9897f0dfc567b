#pragma once

#include "report/run_report.hpp"

#include <string>

namespace tarnwick {

// The report as a page: one file that needs no other and no network, and is readable without its
// script. UTF-8, whatever bytes the texts of the report are.
[[nodiscard]] std::string htmlReport(const RunReport& report);

} // namespace tarnwick
