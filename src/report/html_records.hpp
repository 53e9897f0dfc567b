#pragma once

#include "report/run_report.hpp"

#include <string>

namespace tarnwick {

// Adds the section with all records, each with links to its products. The rows stand in a
// <noscript>: a browser without the script shows all, one with it does not have to lay out a
// hundred thousand rows before anything can be seen; the script takes them from there, a part at a
// time.
void addRecordsSection(const RunReport& report, std::string& page);

} // namespace tarnwick
