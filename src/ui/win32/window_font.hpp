#pragma once

#include "ui/forms/font.hpp"
#include "ui/win32/gdi_handle.hpp"

#include <windows.h>

namespace tarnwick {

// The font that the window writes in; its dialog has the form's own.
[[nodiscard]] LOGFONTW fontOf(HWND window) noexcept;

// A font of a window's own, in place of the form's.
class OwnFont {
  public:
    // Gives it to the window, as large as its resolution asks for now. Nothing for a font that is
    // the form's.
    void show(HWND window, const Font& wanted);

  private:
    GdiHandle<HFONT> font_;
};

} // namespace tarnwick
