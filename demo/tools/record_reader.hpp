#pragma once

#include "findings.hpp"
#include "record.hpp"

#include <span>
#include <string>

namespace demo {

// Reads a record that is strict about its form: names as in the element table, and an element
// deeper in indentation than its group. What it cannot place is told to `findings`: a misplaced
// element goes where the table has it if that group is open, else to the top level; an unknown one
// is left out with all that stands below it.
[[nodiscard]] Record readRecord(std::span<const std::string> lines, Findings& findings);

} // namespace demo
