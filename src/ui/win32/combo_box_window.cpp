#include "ui/win32/combo_box_window.hpp"

#include "ui/win32/refused_text.hpp"
#include "ui/win32/window_text.hpp"

#include <cstddef>

namespace tarnwick {

void DropDownWindow::showItems(const std::vector<std::string>& items) {
    SendMessageW(window(), CB_RESETCONTENT, 0, 0);
    for (const std::string& item : items) {
        SendMessageW(window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(item).c_str()));
    }
}

bool DropDownWindow::pick(const std::string& item) {
    const LRESULT found = SendMessageW(window(), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(toWide(item).c_str()));
    SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(found), 0);
    return found != CB_ERR;
}

int DropDownWindow::picked() const noexcept {
    return static_cast<int>(SendMessageW(window(), CB_GETCURSEL, 0, 0));
}

void ComboBoxWindow::changed(Property property) {
    if (property == Property::Items) {
        showItems(comboBox_.items());
        showText();
    } else if (property == Property::Text) {
        showText();
    } else if (property == Property::Bounds) {
        keepingText([&] { ControlWindow::changed(property); });
    } else {
        ControlWindow::changed(property);
    }
}

void ComboBoxWindow::resolutionChanged() {
    keepingText([this] { ControlWindow::resolutionChanged(); });
    if (GetFocus() != field()) {
        unmark(); // the system has laid it out before
    }
}

// The system's own box completes its text from its list when its size changes, and marks it.
void ComboBoxWindow::keepingText(const std::function<void()>& resize) {
    const LRESULT marked = SendMessageW(window(), CB_GETEDITSEL, 0, 0);
    resize();
    if (windowText(window()) != comboBox_.text()) {
        setWindowText(window(), comboBox_.text());
    }
    SendMessageW(window(), CB_SETEDITSEL, 0, marked);
}

HWND ComboBoxWindow::field() const noexcept {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    return GetComboBoxInfo(window(), &parts) != FALSE ? parts.hwndItem : nullptr;
}

void ComboBoxWindow::showText() {
    if (!pick(comboBox_.text()) || windowText(window()) != comboBox_.text()) {
        setWindowText(window(), comboBox_.text());
    }
}

void ComboBoxWindow::notified(WORD code) {
    if (code == CBN_EDITCHANGE) {
        edited();
    } else if (code == CBN_SELCHANGE && picked() >= 0) {
        comboBox_.userPicked(static_cast<std::size_t>(picked()));
    } else if (code == CBN_KILLFOCUS) {
        // Else its text would stay marked as if it still had the focus.
        unmark();
    }
}

// What has no place in the code page is not taken: the field shows again what it held.
void ComboBoxWindow::edited() {
    if (const auto text = windowText(window()); text) {
        comboBox_.userChangedText(*text);
        return;
    }
    showText();
    if (field() != nullptr) {
        tellRefused(field());
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
