#pragma once

#include "ui/forms/captioned.hpp"

namespace tarnwick {

class Button final : public Clickable {
  public:
    enum class Role {
        Plain,
        Default,          // Enter clicks it, wherever the focus is, unless on another button
        Cancel,           // Escape clicks it, unless it is told not to answer that
        DefaultAndCancel, // the only button of a window that is just read
    };

    Button(Form& form, std::string_view name, std::string_view caption, Role role = Role::Plain)
        : Clickable(form, name, caption),
          role_(role),
          answersEscape_(role == Role::Cancel || role == Role::DefaultAndCancel) {}

    [[nodiscard]] bool isDefault() const noexcept {
        return role_ == Role::Default || role_ == Role::DefaultAndCancel;
    }
    [[nodiscard]] bool isCancel() const noexcept override {
        return role_ == Role::Cancel || role_ == Role::DefaultAndCancel;
    }

    // Whether Escape clicks it. Every Cancel does at first; what closes a window with much work in
    // it may rather not.
    [[nodiscard]] bool answersEscape() const noexcept { return answersEscape_; }
    void setAnswersEscape(bool answers) noexcept { answersEscape_ = answers; }

    // A Cancel that does not answer Escape swallows it: the system would take it for a click.
    [[nodiscard]] bool wantsKey(int keyCode) const override {
        return keyCode == Key::escape && (Escape || (isCancel() && !answersEscape()));
    }
    void userPressedKey(int keyCode) override {
        if (isUsable() && wantsKey(keyCode)) {
            fire(Escape);
        }
    }

    // The key, while the button has the focus; without a handler it clicks the form's Cancel.
    std::function<void()> Escape;

  private:
    Role role_;
    bool answersEscape_;
};

} // namespace tarnwick
