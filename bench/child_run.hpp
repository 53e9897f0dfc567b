#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tarnwick {

// What one run in a process of its own cost.
struct Cost {
    double seconds = 0;     // from its start to its end
    long peakKilobytes = 0; // of memory
};

// Runs `work` in a process of its own. Ends the program when it fails: what does not work must not
// pass as a good time.
[[nodiscard]] Cost costOf(const std::function<void()>& work);

// The same for another program, found along the PATH.
[[nodiscard]] Cost costOf(const std::vector<std::string>& command);

} // namespace tarnwick
