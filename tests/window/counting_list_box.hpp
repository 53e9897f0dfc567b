#pragma once

#include "ui/win32/window_filter.hpp"

#include <windows.h>

#include <utility>

namespace tarnwick::gallery {

// Stands before a list box and counts what it is told. Must go before the window does.
class CountingListBox final : private WindowFilter {
  public:
    struct Counts {
        int refills = 0; // how often it was emptied
        int names = 0;   // that were put into it
        int drawn = 0;   // of these, while the list box was drawing
        int others = 0;  // messages of any other kind
    };

    explicit CountingListBox(HWND window) noexcept : WindowFilter(window) {}

    // Since the last time.
    [[nodiscard]] Counts take() noexcept { return std::exchange(counts_, {}); }
    [[nodiscard]] int horizontalExtent() noexcept {
        return static_cast<int>(pass(LB_GETHORIZONTALEXTENT, 0, 0));
    }

  private:
    LRESULT filter(UINT message, WPARAM wParam, LPARAM lParam) noexcept override {
        switch (message) {
        case LB_RESETCONTENT:
            ++counts_.refills;
            break;
        case LB_ADDSTRING:
        case LB_INSERTSTRING:
            ++counts_.names;
            counts_.drawn += drawing_ ? 1 : 0;
            break;
        default:
            if (message == WM_SETREDRAW) {
                drawing_ = wParam != FALSE;
            }
            ++counts_.others;
            break;
        }
        return pass(message, wParam, lParam);
    }

    Counts counts_;
    bool drawing_ = true;
};

} // namespace tarnwick::gallery
