#pragma once

#include "ui/win32/gdi_handle.hpp"

#include <windows.h>

namespace tarnwick {

// The font that the window writes in; its dialog has the form's own.
[[nodiscard]] inline LOGFONTW fontOf(HWND window) noexcept {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)), // NOLINT
               sizeof font, &font);
    return font;
}

[[nodiscard]] inline LONG heightOfPoints(int points, int dpi) noexcept {
    constexpr int pointsPerInch = 72;
    return -MulDiv(points, dpi, pointsPerInch);
}

} // namespace tarnwick
