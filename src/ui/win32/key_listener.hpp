#pragma once

#include "ui/win32/control_window.hpp"
#include "ui/win32/window_filter.hpp"

namespace tarnwick {

// Tells a ControlWindow of the keys that go down and up in its window, one of the system's, which
// reports them to nobody, and asks its control about Enter and Escape.
class KeyListener final : private WindowFilter {
  public:
    // The owner must outlive it.
    explicit KeyListener(ControlWindow& owner) noexcept;

  private:
    LRESULT filter(UINT message, WPARAM wParam, LPARAM lParam) noexcept override;

    ControlWindow& owner_;
};

// The answer to WM_GETDLGCODE as far as Enter and Escape go: DLGC_WANTMESSAGE, or nothing.
[[nodiscard]] LRESULT dialogCodeForKey(const ControlWindow& window, LPARAM message);

} // namespace tarnwick
