#pragma once

#include "ui/win32/window_filter.hpp"

namespace tarnwick {

// Tells the dialog of the keys that go down and up in one of the system's controls, which reports
// them to nobody, and asks it about Enter and Escape (see ViewMessage).
class KeyListener final : private WindowFilter {
  public:
    explicit KeyListener(HWND window) noexcept : WindowFilter(window) {}

  private:
    LRESULT filter(UINT message, WPARAM wParam, LPARAM lParam) noexcept override;
};

// The answer to WM_GETDLGCODE as far as Enter and Escape go: DLGC_WANTMESSAGE, or nothing.
[[nodiscard]] LRESULT dialogCodeForKey(HWND window, LPARAM message);

} // namespace tarnwick
