#pragma once

#include "findings.hpp"
#include "record.hpp"

namespace demo {

// Checks a record against the element table, and its dates and coordinates for sense.
void check(const Record& record, Findings& findings);

} // namespace demo
