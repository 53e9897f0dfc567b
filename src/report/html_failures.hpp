#pragma once

#include "report/html_links.hpp"
#include "report/run_report.hpp"

#include <string>

namespace tarnwick {

// The section of the page with what failed: why, what the tools said of the record, and links to
// what they left of it, their reports first. The first of them: a run in which everything fails has
// one cause, and would fill the page.
[[nodiscard]] std::string failuresSection(const RunReport& report, const ShapeLinks& shapes);

} // namespace tarnwick
