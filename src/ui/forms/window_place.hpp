#pragma once

#include "ui/forms/measures.hpp"

#include <algorithm>

namespace tarnwick {

// The window moved as little as it takes to lie within `area`, all in the same unit. Where it is
// too large for that, its upper left corner is what must be seen: the title, by which it is moved.
// Its size stays.
[[nodiscard]] constexpr Bounds movedInto(const Bounds& area, const Bounds& window) noexcept {
    const int lowest = area.top + area.height - window.height;
    const int rightmost = area.left + area.width - window.width;
    return {.left = std::max(std::min(window.left, rightmost), area.left),
            .top = std::max(std::min(window.top, lowest), area.top),
            .width = window.width,
            .height = window.height};
}

} // namespace tarnwick
