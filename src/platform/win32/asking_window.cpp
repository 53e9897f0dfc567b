#include "platform/win32/asking_window.hpp"

namespace tarnwick {
namespace {

// From the front to the back.
BOOL CALLBACK take(HWND window, LPARAM found) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    const bool usable = (style & WS_VISIBLE) != 0 && (style & WS_DISABLED) == 0;
    // Tips and lists that drop down have no title.
    if (!usable || (style & WS_CAPTION) != WS_CAPTION) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(found) = window; // NOLINT(performance-no-int-to-ptr)
    return FALSE;
}

} // namespace

HWND askingWindow() noexcept {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), take, reinterpret_cast<LPARAM>(&found));
    return found;
}

} // namespace tarnwick
