#include "ui/win32/clickable_window.hpp"

#include "ui/forms/form.hpp"

namespace tarnwick {

void ClickableWindow::notified(WORD code) {
    if (!isClick(code)) {
        return;
    }
    // Enter and Escape click a button from wherever the focus is; the mouse, an access key and the
    // space bar have brought it here first.
    if (GetFocus() == window()) {
        clickable_.form().userClicked(clickable_);
    } else {
        clickable_.userClicked();
    }
}

void CheckBoxWindow::changed(Property property) {
    if (property == Property::Value) {
        SendMessageW(window(), BM_SETCHECK, checkBox_.ticked() ? BST_CHECKED : BST_UNCHECKED, 0);
    } else {
        ClickableWindow::changed(property);
    }
}

} // namespace tarnwick
