#pragma once

#include <windows.h>

namespace tarnwick {

// Tells the system, for as long as it lives, why a window holds up the end of the session.
// Otherwise the system puts a page of its own over the question after five seconds, with no word
// about it.
class SessionHold {
  public:
    explicit SessionHold(HWND window) noexcept : window_(window) {
        ShutdownBlockReasonCreate(window_, L"It asks whether to save your changes.");
    }
    SessionHold(const SessionHold&) = delete;
    SessionHold& operator=(const SessionHold&) = delete;
    ~SessionHold() { ShutdownBlockReasonDestroy(window_); }

  private:
    HWND window_;
};

} // namespace tarnwick
