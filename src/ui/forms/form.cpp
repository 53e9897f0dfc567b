#include "ui/forms/form.hpp"

#include "common/scoped_flag.hpp"
#include "ui/forms/keys.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

bool canHaveFocus(const Control& control) noexcept {
    return control.isFocusable() && control.isUsable();
}

} // namespace

Control* Form::find(std::string_view name) const noexcept {
    const auto found =
        std::ranges::find_if(controls_, [name](const Control* c) { return c->name() == name; });
    return found == controls_.end() ? nullptr : *found;
}

void Form::moveTo(int left, int top) {
    userMoved(left, top);
    tellView(Property::Bounds);
}

void Form::userMoved(int left, int top) noexcept {
    window_.left = left;
    window_.top = top;
}

void Form::resizeTo(Size window) {
    if (window_.width != window.width || window_.height != window.height) {
        window_.width = window.width;
        window_.height = window.height;
        tellView(Property::Size);
    }
}

void Form::centreOnScreen() {
    moveTo((screen_.width - window_.width) / 2, (screen_.height - window_.height) / 2);
}

void Form::measured(Size window, Size screen) noexcept {
    window_.width = window.width;
    window_.height = window.height;
    screen_ = screen;
}

void Form::show() {
    if (!loaded_) {
        loaded_ = true;
        fire(Load);
        if (!loaded_) {
            return;
        }
    }
    visible_ = true;
    if (focused_ == nullptr) {
        focused_ = firstFocusable();
    }
    tellView(Property::Visible);
    fire(Resize);
}

void Form::hide() {
    if (visible_) {
        visible_ = false;
        owed_ = nullptr;
        tellView(Property::Visible);
    }
}

void Form::unload() {
    if (loaded_) {
        loaded_ = false;
        fire(Unload);
    }
    hide();
    focused_ = nullptr;
}

void Form::abandon() {
    loaded_ = false;
    hide();
    focused_ = nullptr;
}

void Form::userMovedFocus(Control& to) {
    if (!visible_ || &to == focused_ || !canHaveFocus(to)) {
        return;
    }
    if (movingFocus_) {
        focused_ = &to;
        return;
    }
    const ScopedFlag moving(movingFocus_);
    leaveFor(to);
    if (visible_ && focused_ == &to) {
        fire(to.GotFocus);
    }
}

void Form::leaveFor(Control& to) {
    Control* const left = focused_;
    Control* const owing = owed_;
    focused_ = &to;
    owed_ = nullptr;
    Control* const due = owing != nullptr ? owing : left;
    if (due != nullptr && due->putsOffCheckFor(to)) {
        owed_ = due;
        return;
    }
    // A field that was switched off in the meantime is not checked.
    Control* const owes = owing != nullptr && owing->isUsable() ? owing : nullptr;
    for (Control* const control : {owes, left}) {
        if (control != nullptr && control != &to && visible_ && focused_ == &to) {
            fire(control->LostFocus);
        }
    }
}

bool Form::setFocus(Control& control) noexcept {
    if (!canHaveFocus(control)) {
        return false;
    }
    focused_ = &control;
    if (owed_ == &control) {
        owed_ = nullptr;
    }
    return true;
}

// A control that is switched off under the user's hands must not keep the keyboard.
void Form::keepFocusUsable() {
    if (visible_ && focused_ != nullptr && !canHaveFocus(*focused_)) {
        Control* const successor = focused_->successor();
        focused_ = nullptr;
        Control* const next =
            successor != nullptr && canHaveFocus(*successor) ? successor : firstFocusable();
        if (next != nullptr) {
            next->setFocus();
        }
    }
}

Control* Form::firstFocusable() const noexcept {
    const auto found =
        std::ranges::find_if(controls_, [](const Control* c) { return canHaveFocus(*c); });
    return found == controls_.end() ? nullptr : *found;
}

void Form::userClicked(Clickable& control) {
    userMovedFocus(control);
    if (visible_ && focused_ == &control) {
        control.userClicked();
    }
}

bool Form::focusedTakes(int keyCode) {
    if (!visible_ || focused_ == nullptr || !focused_->wantsKey(keyCode)) {
        return false;
    }
    focused_->userPressedKey(keyCode);
    return true;
}

void Form::userPressedEnter() {
    if (focusedTakes(Key::enter)) {
        return;
    }
    if (auto* const button = dynamic_cast<Button*>(focused_); button != nullptr) {
        button->userClicked();
    } else {
        click([](const Button& candidate) { return candidate.isDefault(); });
    }
}

void Form::userPressedEscape() {
    if (focusedTakes(Key::escape)) {
        return;
    }
    click([](const Button& candidate) { return candidate.answersEscape(); });
}

void Form::userPressedFunctionKey(int keyCode) {
    if (visible_) {
        fire(FunctionKey, keyCode);
    }
}

void Form::click(bool (*wanted)(const Button&)) {
    for (Control* const control : controls_) {
        if (auto* const button = dynamic_cast<Button*>(control);
            visible_ && button != nullptr && wanted(*button)) {
            button->userClicked();
            return;
        }
    }
}

void Form::userClosed() {
    if (visible_) {
        unload();
    }
}

void Form::sessionIsEnding() {
    if (visible_ && loaded_) { // a form that is being unloaded has asked already
        fire(SessionIsEnding);
    }
}

void Form::sessionEnded(bool ended) {
    if (!visible_) {
        return;
    }
    if (ended) {
        unload();
    } else {
        fire(SessionGoesOn);
    }
}

bool Form::viewFailed(const std::exception_ptr& error) {
    const bool dealtWith = loaded_ && ViewFailed;
    if (dealtWith) {
        fire(ViewFailed, error);
    }
    unload(); // the user could not see what goes on in it
    return dealtWith;
}

void Form::userResized(Size window, WindowState state) {
    const bool same =
        window.width == window_.width && window.height == window_.height && state == windowState_;
    window_.width = window.width;
    window_.height = window.height;
    windowState_ = state;
    if (visible_ && !same) {
        fire(Resize);
    }
}

void Form::userMovedMouse() {
    if (visible_) {
        fire(MouseMove);
    }
}

} // namespace tarnwick
