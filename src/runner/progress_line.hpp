#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarnwick {

// How far a run is.
struct Progress {
    std::size_t done = 0; // made or failed
    std::size_t all = 0;
    std::size_t failed = 0;
    double seconds = 0;              // since it began
    std::vector<std::string> inWork; // names of records
    bool ending = false;             // nothing more is begun
};

// One line of at most `width` characters: bar, done of all, failed, per second, time left, names in
// work. The narrower, the less of it, from the end on; names are visible text.
[[nodiscard]] std::string progressLine(const Progress& progress, std::size_t width);

// "5 s", "2 min 5 s", "3 h 2 min".
[[nodiscard]] std::string durationText(double seconds);

} // namespace tarnwick
