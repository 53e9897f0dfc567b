#include "ui/forms/combo_box.hpp"

#include <utility>

namespace tarnwick {

ComboBox::ComboBox(Form& form, std::string_view name, std::vector<std::string> items)
    : Control(form, name), items_(std::move(items)) {}

void ComboBox::userChangedText(std::string_view text) {
    if (isUsable()) {
        text_ = text;
        fire(Change);
    }
}

void ComboBox::userPicked(std::size_t index) {
    const bool came = userBroughtFocus();
    if (came) {
        text_ = items_.at(index);
    }
    tellView(Property::Text); // in full, and where the focus did not come, the old one again
    if (came) {
        fire(Click);
    }
}

} // namespace tarnwick
