#pragma once

#include "report/run_report.hpp"

#include <string>

namespace tarnwick {

// Pictures of numbers, drawn as SVG. What they show stands beside them as text or as a table.

// Made, failed, up to date and not run as parts of one bar.
[[nodiscard]] std::string stateBar(const RunReport& report);

// The section with the last runs: a small plot for each of three numbers, and all numbers folded.
[[nodiscard]] std::string runsSection(const RunReport& report);

// The section with how long the tools took: how many calls took how long, and the slowest twenty.
[[nodiscard]] std::string timesSection(const RunReport& report);

} // namespace tarnwick
