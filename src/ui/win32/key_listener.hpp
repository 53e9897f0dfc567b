#pragma once

#include <windows.h>

namespace tarnwick {

// Tells the dialog of the keys that go down and up in one of the system's controls, which reports
// them to nobody, and asks it about Enter and Escape (see ViewMessage).
class KeyListener {
  public:
    explicit KeyListener(HWND window) noexcept;
    KeyListener(const KeyListener&) = delete;
    KeyListener(KeyListener&&) = delete;
    KeyListener& operator=(const KeyListener&) = delete;
    KeyListener& operator=(KeyListener&&) = delete;
    ~KeyListener();

  private:
    HWND window_;
};

// The answer to WM_GETDLGCODE as far as Enter and Escape go: DLGC_WANTMESSAGE, or nothing.
[[nodiscard]] LRESULT dialogCodeForKey(HWND window, LPARAM message);

} // namespace tarnwick
