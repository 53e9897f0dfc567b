#pragma once

#include <windows.h>

namespace tarnwick {

// While it lives, changes to the window are not drawn; then all of them at once.
class RedrawPause {
  public:
    explicit RedrawPause(HWND window) noexcept : window_(window) {
        SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;
    ~RedrawPause() {
        SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    }

  private:
    HWND window_;
};

} // namespace tarnwick
