#pragma once

#include "ui/forms/measures.hpp"

#include <windows.h>

namespace tarnwick {

// A monitor, and the resolution of a window on it.
struct Screen {
    RECT whole{};
    RECT workArea{}; // without taskbars
    int dpi = 0;
};

// The one that the window is on, or is nearest to.
[[nodiscard]] Screen screenOf(HWND window) noexcept;

// The same area as a form counts it, in pixels.
[[nodiscard]] Bounds boundsOf(const RECT& area) noexcept;

} // namespace tarnwick
