#pragma once

#include "report/html_links.hpp"
#include "report/report_sink.hpp"
#include "report/run_report.hpp"

namespace tarnwick {

// Gives the section with all records, each with links to its products. The rows stand in a
// <noscript>: a browser without the script shows all, one with it does not have to lay out a
// hundred thousand rows before anything can be seen; the script takes them from there, a part at a
// time. Raises what `sink` raises.
void recordsSection(const RunReport& report, const ListedFindings& listed, const ReportSink& sink);

} // namespace tarnwick
