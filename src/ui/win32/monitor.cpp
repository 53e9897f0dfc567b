#include "ui/win32/monitor.hpp"

namespace tarnwick {

Screen screenOf(HWND window) noexcept {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return {.whole = monitor.rcMonitor,
            .workArea = monitor.rcWork,
            .dpi = static_cast<int>(GetDpiForWindow(window))};
}

Bounds boundsOf(const RECT& area) noexcept {
    return {.left = static_cast<int>(area.left),
            .top = static_cast<int>(area.top),
            .width = static_cast<int>(area.right - area.left),
            .height = static_cast<int>(area.bottom - area.top)};
}

} // namespace tarnwick
