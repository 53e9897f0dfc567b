#pragma once

#include "ui/forms/captioned.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/window_font.hpp"
#include "ui/win32/window_text.hpp"

namespace tarnwick {

// What has a caption.
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

// A static text. Only one with the style SS_NOTIFY tells of the mouse over it.
class LabelWindow final : public CaptionedWindow {
  public:
    LabelWindow(Label& label, HWND window) : CaptionedWindow(label, window), label_(label) {}

    void changed(Property property) override {
        if (property == Property::Font) {
            fitResolution();
        } else {
            CaptionedWindow::changed(property);
        }
    }

  private:
    void fitResolution() override { font_.show(window(), label_.font()); }

    Label& label_;
    OwnFont font_;
};

// A titled line around a group of controls. Some themes of the system draw the title a little wider
// than they have measured it, and cut its end off: so a blank is appended, and that is what gets
// cut.
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
