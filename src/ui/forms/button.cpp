#include "ui/forms/button.hpp"

namespace tarnwick {

Button::Button(Form& form, std::string_view name, std::string_view caption, Role role)
    : Clickable(form, name, caption),
      role_(role),
      answersEscape_(role == Role::Cancel || role == Role::DefaultAndCancel) {}

void Button::userPressedKey(int keyCode) {
    if (isUsable() && wantsKey(keyCode)) {
        fire(Escape);
    }
}

} // namespace tarnwick
