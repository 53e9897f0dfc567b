#include "ui/forms/check_box.hpp"

namespace tarnwick {

void CheckBox::setValue(int value) {
    set(value_, value, Property::Value);
}

void CheckBox::userClicked() {
    if (isUsable()) {
        setValue(ticked() ? 0 : 1);
        Clickable::userClicked();
    }
}

} // namespace tarnwick
