#include "ui/forms/menu_item.hpp"

#include "ui/forms/form.hpp"

namespace tarnwick {

MenuItem::MenuItem(Form& form, std::string_view name, std::string_view caption)
    : form_(form), name_(name), caption_(caption) {
    form.add(*this);
}

MenuItem::MenuItem(MenuItem& parent, std::string_view name, std::string_view caption)
    : form_(parent.form_), name_(name), caption_(caption) {
    parent.items_.push_back(this);
}

void MenuItem::userClicked() {
    if (form_.visible() && !isSeparator() && items_.empty()) {
        fire(Click);
    }
}

} // namespace tarnwick
