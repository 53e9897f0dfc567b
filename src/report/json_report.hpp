#pragma once

#include "report/run_report.hpp"

#include <string>

namespace tarnwick {

// The whole report as JSON, by docs/report.schema.json. UTF-8; what is no UTF-8 in a text becomes
// U+FFFD, all else stands there as it is.
[[nodiscard]] std::string jsonReport(const RunReport& report);

} // namespace tarnwick
