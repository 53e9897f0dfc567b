#include "ui/forms/control.hpp"

#include "ui/forms/form.hpp"

#include <algorithm>

namespace tarnwick {

Control::Control(Form& form, std::string_view name) : form_(form), name_(name) {
    form.add(*this);
}

void Control::setEnabled(bool enabled) {
    set(enabled_, enabled, Property::Enabled);
    form_.keepFocusUsable();
}

void Control::setVisible(bool visible) {
    set(visible_, visible, Property::Visible);
    form_.keepFocusUsable();
}

void Control::setBounds(const Bounds& bounds) {
    set(bounds_, bounds, Property::Bounds);
}

void Control::setAccessibleName(std::string_view name) {
    set(accessibleName_, std::string(name), Property::AccessibleName);
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

void Control::tellView(Property property) {
    if (view_ != nullptr) {
        view_->changed(property);
    }
}

} // namespace tarnwick
