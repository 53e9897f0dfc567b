#pragma once

#include <chrono>
#include <thread>

namespace tarnwick {

// Asks `isSo` again and again until it is; false when it is not after two minutes. For what takes
// its own time: only what is broken lets anybody wait so long, however busy the machine is.
template <typename Condition>
[[nodiscard]] bool eventually(Condition isSo) {
    using namespace std::chrono_literals;
    constexpr auto between = 20ms;
    for (auto left = std::chrono::milliseconds(2min); !isSo(); left -= between) {
        if (left <= 0ms) {
            return false;
        }
        std::this_thread::sleep_for(between);
    }
    return true;
}

} // namespace tarnwick
