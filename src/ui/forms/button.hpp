#pragma once

#include "ui/forms/captioned.hpp"

namespace tarnwick {

class Button final : public Clickable {
  public:
    enum class Role {
        Plain,
        Default,          // Enter clicks it, wherever the focus is, unless on another button
        Cancel,           // Escape clicks it
        DefaultAndCancel, // the only button of a window that is just read
    };

    Button(Form& form, std::string_view name, std::string_view caption, Role role = Role::Plain);

    [[nodiscard]] bool isDefault() const noexcept {
        return role_ == Role::Default || role_ == Role::DefaultAndCancel;
    }
    [[nodiscard]] bool isCancel() const noexcept override {
        return role_ == Role::Cancel || role_ == Role::DefaultAndCancel;
    }

    [[nodiscard]] bool wantsKey(int keyCode) const override;
    void userPressedKey(int keyCode) override;

    // The key, while the button has the focus; without a handler it clicks the form's Cancel.
    std::function<void()> Escape;

  private:
    Role role_;
};

} // namespace tarnwick
