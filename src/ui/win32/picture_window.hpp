#pragma once

#include "ui/forms/picture.hpp"
#include "ui/win32/control_window.hpp"

#include <windows.h>

#include <memory>
#include <type_traits>

namespace tarnwick {

// A static window; for a picture it has the styles SS_ICON and SS_CENTERIMAGE, else it is a frame.
// Only one with the style SS_NOTIFY tells of the mouse over it.
class PictureWindow final : public ControlWindow {
  public:
    // Raises 51 where there is no icon of that name.
    PictureWindow(Picture& picture, HWND window);

    void resolutionChanged() override;

  private:
    struct IconDeleter {
        void operator()(HICON icon) const noexcept { DestroyIcon(icon); }
    };
    void showIcon();

    Picture& picture_;
    std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter> icon_;
};

} // namespace tarnwick
