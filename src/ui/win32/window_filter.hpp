#pragma once

#include <windows.h>

namespace tarnwick {

// Sees the messages of one of the system's windows before the window does. Of several that stand
// before one window the last one made sees them first; they go in the reverse order, all before
// the window. Uses the window's GWLP_USERDATA, which nobody else may. Another program's procedure
// may stand before them.
// Not the subclassing of the common controls: that one asks the system for a property of the window
// twice a message, which was a good part of the time that the main window takes to come up.
class WindowFilter {
  public:
    WindowFilter(const WindowFilter&) = delete;
    WindowFilter& operator=(const WindowFilter&) = delete;

  protected:
    explicit WindowFilter(HWND window) noexcept;
    ~WindowFilter();

    // Answers the message.
    virtual LRESULT filter(UINT message, WPARAM wParam, LPARAM lParam) noexcept = 0;
    // What those behind this one, or the window itself, answer.
    [[nodiscard]] LRESULT pass(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    [[nodiscard]] HWND window() const noexcept { return window_; }

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept;

    HWND window_;
    WindowFilter* behind_;
    WNDPROC windowsOwn_ = nullptr; // where nobody is behind it
};

} // namespace tarnwick
