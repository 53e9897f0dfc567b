#pragma once

#include "ui/win32/captioned_window.hpp"

namespace tarnwick {

// A titled line around a group of controls. Where the system's theme draws the title with another
// measure than it has taken of it, the last letter would lose an edge: a blank takes the cut.
class FrameWindow final : public CaptionedWindow {
  public:
    FrameWindow(Frame& frame, HWND window) : CaptionedWindow(frame, window), frame_(frame) {}

    void changed(Property property) override {
        if (property == Property::Caption && !frame_.caption().empty()) {
            setWindowText(window(), frame_.caption() + ' ');
        } else {
            CaptionedWindow::changed(property);
        }
    }

  private:
    Frame& frame_;
};

} // namespace tarnwick
