#include "platform/run_time_error.hpp"
#include "ui/forms/check_box.hpp"
#include "ui/win32/captioned_window.hpp"
#include "ui/win32/clickable_window.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/text_box_window.hpp"

namespace tarnwick {

// From the most particular kind to the most general.
std::unique_ptr<ControlWindow> makeControlWindow(Control& control, HWND window) {
    std::unique_ptr<ControlWindow> made;
    if (auto* const textBox = dynamic_cast<TextBox*>(&control); textBox != nullptr) {
        made = std::make_unique<TextBoxWindow>(*textBox, window);
    } else if (auto* const checkBox = dynamic_cast<CheckBox*>(&control); checkBox != nullptr) {
        made = std::make_unique<CheckBoxWindow>(*checkBox, window);
    } else if (auto* const clickable = dynamic_cast<Clickable*>(&control); clickable != nullptr) {
        made = std::make_unique<ClickableWindow>(*clickable, window);
    } else if (auto* const captioned = dynamic_cast<Captioned*>(&control); captioned != nullptr) {
        made = std::make_unique<CaptionedWindow>(*captioned, window);
    } else {
        throw RunTimeError(ErrorNumber::InternalError);
    }
    made->showAll();
    return made;
}

} // namespace tarnwick
