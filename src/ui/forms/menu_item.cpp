#include "ui/forms/menu_item.hpp"

#include "ui/forms/form.hpp"

namespace tarnwick {

MenuItem::MenuItem(Form& form, std::string_view name, std::string_view caption)
    : form_(form), name_(name), caption_(caption) {
    form.add(*this);
}

MenuItem::MenuItem(MenuItem& parent, std::string_view name, std::string_view caption)
    : form_(parent.form_), parent_(&parent), name_(name), caption_(caption) {
    parent.items_.push_back(this);
}

void MenuItem::setCaption(std::string_view caption) {
    if (caption_ != caption) {
        caption_ = caption;
        form_.tellView(Property::Menu);
    }
}

void MenuItem::setEnabled(bool enabled) {
    if (enabled_ != enabled) {
        enabled_ = enabled;
        form_.tellView(Property::Menu);
    }
}

bool MenuItem::isUsable() const noexcept {
    if (isSeparator() || !items_.empty()) {
        return false;
    }
    for (const MenuItem* item = this; item != nullptr; item = item->parent_) {
        if (!item->enabled_) {
            return false;
        }
    }
    return true;
}

void MenuItem::userClicked() {
    if (form_.visible() && isUsable()) {
        raise(Click);
    }
}

} // namespace tarnwick
