#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarnwick {

// How everything stood at the end of one run. What nearly every record says (a heading, a line of
// counts) is no finding here: else all records would have some, always.
struct RunTotals {
    std::string begun{}; // date and time, UTC, as 2026-11-22T02:24:48Z
    double seconds = 0;
    std::size_t made = 0;
    std::size_t upToDate = 0;
    std::size_t failed = 0;
    std::size_t notRun = 0;
    std::size_t recordsWithFindings = 0;
    std::uint64_t messages = 0;

    bool operator==(const RunTotals&) const = default;
};

} // namespace tarnwick
