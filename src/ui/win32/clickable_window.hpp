#pragma once

#include "ui/forms/button.hpp"
#include "ui/forms/check_box.hpp"
#include "ui/win32/captioned_window.hpp"
#include "ui/win32/key_listener.hpp"

namespace tarnwick {

// Has the style BS_NOTIFY.
class ClickableWindow : public CaptionedWindow {
  public:
    ClickableWindow(Clickable& clickable, HWND window)
        : CaptionedWindow(clickable, window), clickable_(clickable) {}

    void notified(WORD code) override;
    [[nodiscard]] bool isFocusNotice(WORD code) const noexcept override {
        return code == BN_SETFOCUS || code == BN_KILLFOCUS;
    }

  protected:
    // A button that notifies takes a quick second press for a double click and sends no click for
    // it.
    [[nodiscard]] virtual bool isClick(WORD code) const noexcept {
        return code == BN_CLICKED || code == BN_DBLCLK;
    }

  private:
    Clickable& clickable_;
};

// A push button.
class ButtonWindow final : public ClickableWindow {
  public:
    ButtonWindow(Button& button, HWND window) : ClickableWindow(button, window), keys_(*this) {}

  private:
    KeyListener keys_; // for Escape, which the system would take for a click on Cancel
};

// A check box; it has the styles BS_NOTIFY and BS_CHECKBOX: what a click does to it is the
// control's to say.
class CheckBoxWindow final : public ClickableWindow {
  public:
    CheckBoxWindow(CheckBox& checkBox, HWND window)
        : ClickableWindow(checkBox, window), checkBox_(checkBox) {}

    void changed(Property property) override;

  private:
    CheckBox& checkBox_;
};

} // namespace tarnwick
