#include "ui/forms/button.hpp"

#include "ui/forms/keys.hpp"

namespace tarnwick {

Button::Button(Form& form, std::string_view name, std::string_view caption, Role role)
    : Clickable(form, name, caption),
      role_(role),
      answersEscape_(role == Role::Cancel || role == Role::DefaultAndCancel) {}

bool Button::wantsKey(int keyCode) const {
    return keyCode == Key::escape && (Escape || (isCancel() && !answersEscape()));
}

void Button::userPressedKey(int keyCode) {
    if (isUsable() && wantsKey(keyCode)) {
        fire(Escape);
    }
}

} // namespace tarnwick
