#include "ui/forms/text_box.hpp"

#include "ui/forms/keys.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick {

void TextBox::setText(std::string_view text) {
    clampSelection(0, 0);
    set(text_, text, Property::Text);
}

void TextBox::select(int start, int length) {
    clampSelection(start, length);
    tellView(Property::Selection);
}

bool TextBox::wantsKey(int keyCode) const {
    return keysOfGrid_ && (keyCode == Key::enter || keyCode == Key::escape || keyCode == Key::up ||
                           keyCode == Key::down);
}

void TextBox::userTyped(std::string_view typed) {
    if (!isUsable() || readOnly_) {
        return;
    }
    text_.replace(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_), typed);
    clampSelection(selStart_ + static_cast<int>(typed.size()), 0);
    tellView(Property::Text);
    tellView(Property::Selection);
    fire(Change);
}

void TextBox::userSelected(int start, int length) {
    if (isUsable()) {
        clampSelection(start, length);
    }
}

void TextBox::userChangedText(std::string_view text, int start, int length) {
    if (isUsable() && !readOnly_) {
        text_ = text;
        clampSelection(start, length);
        fire(Change);
    }
}

void TextBox::userPressedKey(int keyCode) {
    if (isUsable()) {
        fire(KeyDown, keyCode);
    }
}

void TextBox::userReleasedKey(int keyCode) {
    if (isUsable()) {
        fire(KeyUp, keyCode);
    }
}

void TextBox::clampSelection(int start, int length) noexcept {
    const int end = static_cast<int>(text_.size());
    selStart_ = std::clamp(start, 0, end);
    selLength_ = std::clamp(length, 0, end - selStart_);
}

} // namespace tarnwick
