#pragma once

#include "ui/forms/control.hpp"
#include "ui/forms/font.hpp"
#include "ui/forms/keys.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tarnwick {

// A control with a text that is part of the form. "&" stands before the letter of its access key.
class Captioned : public Control {
  public:
    Captioned(Form& form, std::string_view name, std::string_view caption)
        : Control(form, name), caption_(caption) {}

    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    void setCaption(std::string_view caption) { set(caption_, caption, Property::Caption); }

  private:
    std::string caption_;
};

// A captioned control that can be clicked.
class Clickable : public Captioned {
  public:
    using Captioned::Captioned;

    // The user clicked it without moving the focus to it, as Enter and Escape do with a button. A
    // click that brings the focus along is Form::userClicked.
    virtual void userClicked() {
        if (isUsable()) {
            fire(Click);
        }
    }

    std::function<void()> Click;
};

// A text beside a control. Its access key leads to the control that follows it.
class Label final : public Captioned {
  public:
    using Captioned::Captioned;
    [[nodiscard]] bool isFocusable() const noexcept override { return false; }

    [[nodiscard]] const Font& font() const noexcept { return font_; }
    void setFont(Font font) { set(font_, std::move(font), Property::Font); }

  private:
    Font font_;
};

// A caption to click that looks like a link: all of it is text, "&" included. It takes Enter as
// well as the space bar.
class LinkLabel final : public Clickable {
  public:
    using Clickable::Clickable;
    [[nodiscard]] bool wantsKey(int keyCode) const override { return keyCode == Key::enter; }
    void userPressedKey(int keyCode) override {
        if (wantsKey(keyCode)) {
            userClicked();
        }
    }
};

// A titled line around a group of controls. It does not own them: they are enabled and disabled
// for themselves.
class Frame final : public Captioned {
  public:
    using Captioned::Captioned;
    [[nodiscard]] bool isFocusable() const noexcept override { return false; }
};

} // namespace tarnwick
