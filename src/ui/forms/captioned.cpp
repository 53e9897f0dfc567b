#include "ui/forms/captioned.hpp"

#include "ui/forms/keys.hpp"

namespace tarnwick {

Captioned::Captioned(Form& form, std::string_view name, std::string_view caption)
    : Control(form, name), caption_(caption) {}

void Captioned::setCaption(std::string_view caption) {
    set(caption_, std::string(caption), Property::Caption);
}

void Clickable::userClicked() {
    if (isUsable()) {
        fire(Click);
    }
}

bool LinkLabel::wantsKey(int keyCode) const {
    return keyCode == Key::enter;
}

void LinkLabel::userPressedKey(int keyCode) {
    if (wantsKey(keyCode)) {
        userClicked();
    }
}

} // namespace tarnwick
