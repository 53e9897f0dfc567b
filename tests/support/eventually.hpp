#pragma once

#include <chrono>
#include <thread>

namespace tarnwick {

// Asks `isSo` again and again until it is; false when it is not after two minutes. For what takes
// its own time: only what is broken lets anybody wait so long, however busy the machine is.
template <typename Condition>
[[nodiscard]] bool eventually(Condition isSo) {
    using std::chrono::milliseconds;
    constexpr milliseconds between(20);
    for (milliseconds left = std::chrono::minutes(2); !isSo(); left -= between) {
        if (left <= milliseconds::zero()) {
            return false;
        }
        std::this_thread::sleep_for(between);
    }
    return true;
}

} // namespace tarnwick
