#include "ui/forms/button.hpp"

#include "ui/forms/keys.hpp"

namespace tarnwick {

Button::Button(Form& form, std::string_view name, std::string_view caption, Role role)
    : Clickable(form, name, caption), role_(role) {}

bool Button::wantsKey(int keyCode) const {
    return keyCode == Key::escape && Escape;
}

void Button::userPressedKey(int keyCode) {
    if (isUsable() && wantsKey(keyCode)) {
        Escape();
    }
}

} // namespace tarnwick
