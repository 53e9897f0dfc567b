#pragma once

#include "ui/forms/measures.hpp"

#include <windows.h>

namespace tarnwick {

// What the system says of the monitor that the window is on, or is nearest to.
[[nodiscard]] MONITORINFO monitorOf(HWND window) noexcept;

// The same area as a form counts it, in pixels.
[[nodiscard]] Bounds boundsOf(const RECT& area) noexcept;

} // namespace tarnwick
