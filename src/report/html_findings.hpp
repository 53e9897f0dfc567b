#pragma once

#include "report/html_links.hpp"
#include "report/run_report.hpp"

#include <string>

namespace tarnwick {

// Sections of the page: the shapes of messages, each opening its examples and records, those that
// nearly every record has folded at the end; and what is new and gone since the run before, nothing
// where there was none.
[[nodiscard]] std::string findingsSection(const RunReport& report, const PageLinks& links);
[[nodiscard]] std::string changesSection(const RunReport& report, const ShapeLinks& links);

} // namespace tarnwick
