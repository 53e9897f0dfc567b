#pragma once

#include "ui/forms/text_box.hpp"
#include "ui/win32/control_window.hpp"

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

namespace tarnwick {

class TextBoxWindow final : public ControlWindow {
  public:
    TextBoxWindow(TextBox& textBox, HWND window);
    TextBoxWindow(const TextBoxWindow&) = delete;
    TextBoxWindow(TextBoxWindow&&) = delete;
    TextBoxWindow& operator=(const TextBoxWindow&) = delete;
    TextBoxWindow& operator=(TextBoxWindow&&) = delete;
    ~TextBoxWindow() override;

    void changed(Property property) override;
    void resolutionChanged() override;
    void notified(WORD code) override;
    void keyPressed(int keyCode) override;
    void keyReleased(int keyCode) override;
    [[nodiscard]] bool isFocusNotice(WORD code) const noexcept override;

  private:
    struct FontDeleter {
        void operator()(HFONT font) const noexcept { DeleteObject(font); }
    };
    struct Selection {
        int start = 0;
        int length = 0;
    };

    [[nodiscard]] std::string windowText() const;
    [[nodiscard]] Selection selection() const;
    void takeSelection();
    void showFont();
    void showText();
    void showSelection();

    TextBox& textBox_;
    std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter> font_;
    bool showingText_ = false; // what the window reports now is our own doing
};

} // namespace tarnwick
