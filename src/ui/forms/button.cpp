#include "ui/forms/button.hpp"

namespace tarnwick {

Button::Button(Form& form, std::string_view name, std::string_view caption, Role role)
    : Clickable(form, name, caption), role_(role) {}

} // namespace tarnwick
