#pragma once

#include <chrono>
#include <thread>

namespace tarnwick {

// Asks `isSo` again and again until it is; false when it is not after two minutes. For what takes
// its own time: only what is broken lets anybody wait so long, however busy the machine is. What
// does not stay so for long is looked for with a shorter pause; below a millisecond Windows makes
// none.
template <typename Condition>
[[nodiscard]] bool eventually(Condition isSo,
                              std::chrono::milliseconds between = std::chrono::milliseconds(20)) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(2);
    while (!isSo()) {
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(between);
    }
    return true;
}

} // namespace tarnwick
