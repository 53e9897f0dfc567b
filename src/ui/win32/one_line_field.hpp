#pragma once

#include "ui/win32/window_filter.hpp"

namespace tarnwick {

[[nodiscard]] inline bool hasBorder(HWND window) noexcept {
    return (GetWindowLongPtrW(window, GWL_STYLE) & WS_BORDER) != 0 ||
           (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0;
}

// Keeps the text of a field for one line in the middle of its height. The system writes it at the
// upper edge, where it sits high in a field that is higher than its font needs; so the field is
// given no more room than that for its text, and what is left over is drawn as its background.
class OneLineField final : private WindowFilter {
  public:
    // Leaves a field of several lines or without a border as it is.
    explicit OneLineField(HWND window) noexcept;

    // To be called when it is first shown, and when its font is another one.
    void measure() noexcept;

  private:
    LRESULT filter(UINT message, WPARAM wParam, LPARAM lParam) noexcept override;

    bool isOne_;
};

} // namespace tarnwick
