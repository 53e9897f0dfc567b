#pragma once

#include "ui/forms/picture.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/program_icon.hpp"

#include <windows.h>

namespace tarnwick {

// A static window; for a picture it has the styles SS_ICON and SS_CENTERIMAGE, else it is a frame.
// Only one with the style SS_NOTIFY tells of the mouse over it.
class PictureWindow final : public ControlWindow {
  public:
    PictureWindow(Picture& picture, HWND window)
        : ControlWindow(picture, window), picture_(picture) {}

  private:
    // Raises 51 where there is no icon of that name.
    void fitResolution() override;

    Picture& picture_;
    IconHandle icon_;
};

} // namespace tarnwick
