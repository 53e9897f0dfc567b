#pragma once

#include <chrono>
#include <thread>

namespace tarnwick {

// Asks `isSo` again and again until it is; false when it is not after two minutes. For what takes
// its own time: only what is broken lets anybody wait so long, however busy the machine is. What
// does not stay so for long is looked for with a shorter pause.
template <typename Condition>
[[nodiscard]] bool eventually(Condition isSo,
                              std::chrono::microseconds between = std::chrono::milliseconds(20)) {
    using std::chrono::microseconds;
    for (microseconds left = std::chrono::minutes(2); !isSo(); left -= between) {
        if (left <= microseconds::zero()) {
            return false;
        }
        std::this_thread::sleep_for(between);
    }
    return true;
}

} // namespace tarnwick
