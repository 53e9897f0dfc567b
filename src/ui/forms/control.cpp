#include "ui/forms/control.hpp"

#include "ui/forms/form.hpp"

#include <algorithm>

namespace tarnwick {

Control::Control(Form& form, std::string_view name) : form_(form), name_(name) {
    form.add(*this);
}

// The focus moves on first: a window that is switched off with the keyboard in it leaves that to
// the system, which gives it to the first control on the way, and a screen reader says so.
void Control::setUsable(bool& member, bool value, Property property) {
    if (member != value) {
        member = value;
        form_.keepFocusUsable();
        tellView(property);
    }
}

bool Control::putsOffCheckFor(const Control& to) const noexcept {
    return to.isCancel() || std::ranges::find(helpers_, &to) != helpers_.end();
}

bool Control::userBroughtFocus() {
    form_.userMovedFocus(*this);
    return form_.visible() && form_.focused() == this && isUsable();
}

void Control::setFocus() {
    if (form_.setFocus(*this)) {
        tellView(Property::Focus);
    }
}

void Control::userMovedMouse() {
    if (MouseMove && isUsable() && form_.visible()) {
        MouseMove();
    } else {
        form_.userMovedMouse();
    }
}

} // namespace tarnwick
