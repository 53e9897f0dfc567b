#pragma once

#include "ui/forms/text_box.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/key_listener.hpp"
#include "ui/win32/one_line_field.hpp"
#include "ui/win32/window_font.hpp"

#include <windows.h>

namespace tarnwick {

class TextBoxWindow final : public ControlWindow {
  public:
    TextBoxWindow(TextBox& textBox, HWND window);

    void changed(Property property) override;
    void notified(WORD code) override;
    void keyPressed(int keyCode) override;
    void keyReleased(int keyCode) override;
    [[nodiscard]] bool isFocusNotice(WORD code) const noexcept override {
        return code == EN_SETFOCUS || code == EN_KILLFOCUS;
    }

  private:
    struct Selection {
        int start = 0;
        int length = 0;
    };

    [[nodiscard]] Selection selection() const;
    void takeSelection();
    void edited();
    void fitResolution() override;
    void showText();
    void showSelection();

    TextBox& textBox_;
    KeyListener keys_;
    OneLineField field_;
    OwnFont font_;
    bool showingText_ = false; // what the window reports now is our own doing
};

} // namespace tarnwick
