#include "ui/win32/combo_box_window.hpp"

#include "ui/win32/window_text.hpp"

#include <cstddef>

namespace tarnwick {

bool DropDownWindow::isFocusNotice(WORD code) const noexcept {
    return code == CBN_SETFOCUS || code == CBN_KILLFOCUS;
}

void DropDownWindow::showItems(const std::vector<std::string>& items) {
    SendMessageA(window(), CB_RESETCONTENT, 0, 0);
    for (const std::string& item : items) {
        SendMessageA(window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    }
}

bool DropDownWindow::pick(const std::string& item) {
    const LRESULT found = SendMessageA(window(), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(item.c_str()));
    SendMessageA(window(), CB_SETCURSEL, static_cast<WPARAM>(found), 0);
    return found != CB_ERR;
}

int DropDownWindow::picked() const noexcept {
    return static_cast<int>(SendMessageA(window(), CB_GETCURSEL, 0, 0));
}

void ComboBoxWindow::changed(Property property) {
    if (property == Property::Items) {
        showItems(comboBox_.items());
        showText();
    } else if (property == Property::Text) {
        showText();
    } else {
        ControlWindow::changed(property);
    }
}

void ComboBoxWindow::showText() {
    if (!pick(comboBox_.text()) || windowText(window()) != comboBox_.text()) {
        SetWindowTextA(window(), comboBox_.text().c_str());
    }
}

void ComboBoxWindow::notified(WORD code) {
    if (code == CBN_EDITCHANGE) {
        comboBox_.userChangedText(windowText(window()));
    } else if (code == CBN_SELCHANGE && picked() >= 0) {
        comboBox_.userPicked(static_cast<std::size_t>(picked()));
    } else if (code == CBN_KILLFOCUS) {
        // Else its text would stay marked as if it still had the focus.
        SendMessageA(window(), CB_SETEDITSEL, 0, MAKELPARAM(0, 0));
    }
}

void DriveListWindow::changed(Property property) {
    if (property == Property::Items) {
        showItems(driveList_.drives());
        (void)pick(driveList_.drive());
    } else if (property == Property::Text) {
        (void)pick(driveList_.drive());
    } else {
        ControlWindow::changed(property);
    }
}

void DriveListWindow::notified(WORD code) {
    if (code == CBN_SELCHANGE && picked() >= 0) {
        driveList_.userPicked(static_cast<std::size_t>(picked()));
    }
}

} // namespace tarnwick
