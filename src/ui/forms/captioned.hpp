#pragma once

#include "ui/forms/control.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace tarnwick {

// A control with a text that is part of the form. "&" stands before the letter of its access key.
class Captioned : public Control {
  public:
    Captioned(Form& form, std::string_view name, std::string_view caption);

    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    void setCaption(std::string_view caption);

  private:
    std::string caption_;
};

// A captioned control that can be clicked.
class Clickable : public Captioned {
  public:
    using Captioned::Captioned;

    // The user clicked it without moving the focus to it, as Enter and Escape do with a button. A
    // click that brings the focus along is Form::userClicked.
    virtual void userClicked();

    std::function<void()> Click;
};

// A text beside a control. Its access key leads to the control that follows it.
class Label final : public Captioned {
  public:
    using Captioned::Captioned;
    [[nodiscard]] bool isFocusable() const noexcept override { return false; }
};

// A titled line around a group of controls. It does not own them: they are enabled and disabled
// for themselves.
class Frame final : public Captioned {
  public:
    using Captioned::Captioned;
    [[nodiscard]] bool isFocusable() const noexcept override { return false; }
};

} // namespace tarnwick
