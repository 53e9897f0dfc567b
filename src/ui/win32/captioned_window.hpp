#pragma once

#include "ui/forms/captioned.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/window_text.hpp"

namespace tarnwick {

// A label or a frame; with more to it, what else has a caption.
class CaptionedWindow : public ControlWindow {
  public:
    CaptionedWindow(Captioned& captioned, HWND window)
        : ControlWindow(captioned, window), captioned_(captioned) {}

    void changed(Property property) override {
        if (property == Property::Caption) {
            setWindowText(window(), captioned_.caption());
        } else {
            ControlWindow::changed(property);
        }
    }

  private:
    Captioned& captioned_;
};

} // namespace tarnwick
