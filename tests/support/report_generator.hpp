#pragma once

#include "report/run_report.hpp"

#include <cstddef>

namespace tarnwick {

// Reports to try the writers on. Each gives the same value on every machine.

// What runs over so many records would leave: of every state, with findings, fifty runs, and three
// products of each record that has any.
[[nodiscard]] RunReport generatedReport(std::size_t records);

// Three records, one of each kind, and everything else that a report may hold.
[[nodiscard]] RunReport smallReport();

// Every text is one that tries to break out of its place; each record has another.
[[nodiscard]] RunReport hostileReport();

} // namespace tarnwick
