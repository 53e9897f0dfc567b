#pragma once

#include <windows.h>

namespace tarnwick {

[[nodiscard]] inline bool hasBorder(HWND window) noexcept {
    return (GetWindowLongPtrW(window, GWL_STYLE) & WS_BORDER) != 0 ||
           (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0;
}

} // namespace tarnwick
