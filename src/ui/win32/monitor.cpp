#include "ui/win32/monitor.hpp"

namespace tarnwick {

MONITORINFO monitorOf(HWND window) noexcept {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor;
}

Bounds boundsOf(const RECT& area) noexcept {
    return {.left = static_cast<int>(area.left),
            .top = static_cast<int>(area.top),
            .width = static_cast<int>(area.right - area.left),
            .height = static_cast<int>(area.bottom - area.top)};
}

} // namespace tarnwick
