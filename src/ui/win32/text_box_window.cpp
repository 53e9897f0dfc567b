#include "ui/win32/text_box_window.hpp"

#include "common/scoped_flag.hpp"
#include "ui/win32/refused_text.hpp"
#include "ui/win32/window_text.hpp"

#include <commctrl.h>

namespace tarnwick {

TextBoxWindow::TextBoxWindow(TextBox& textBox, HWND window)
    : ControlWindow(textBox, window), textBox_(textBox), keys_(*this), field_(window) {
    SendMessageW(window, EM_SETLIMITTEXT, 0, 0); // no limit
}

void TextBoxWindow::changed(Property property) {
    switch (property) {
    case Property::Text:
        showText();
        break;
    case Property::Selection:
        showSelection();
        break;
    case Property::ReadOnly:
        SendMessageW(window(), EM_SETREADONLY, textBox_.readOnly() ? TRUE : FALSE, 0);
        break;
    case Property::Font:
        fitResolution();
        break;
    case Property::Hint:
        SendMessageW(window(), EM_SETCUEBANNER, TRUE,
                     reinterpret_cast<LPARAM>(toWide(textBox_.hint()).c_str()));
        break;
    case Property::Focus:
        ControlWindow::changed(property);
        showSelection(); // the dialog selects everything when it moves the focus
        break;
    default:
        ControlWindow::changed(property);
        break;
    }
}

void TextBoxWindow::fitResolution() {
    font_.show(window(), textBox_.font());
    // A field without a border lies over a cell and shows its text in place of the cell's own: the
    // code that places it has left room around it already.
    if (!hasBorder(window())) {
        SendMessageW(window(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    }
    field_.measure();
}

void TextBoxWindow::notified(WORD code) {
    if (code == EN_CHANGE && !showingText_) {
        edited();
    } else if (isFocusNotice(code)) {
        takeSelection();
    }
}

// What has no place in the code page is not taken: the field shows again what it held.
void TextBoxWindow::edited() {
    if (const auto text = windowText(window()); text) {
        const Selection now = selection();
        textBox_.userChangedText(*text, now.start, now.length);
    } else {
        showText();
        showSelection();
        tellRefused(window());
    }
}

void TextBoxWindow::keyPressed(int keyCode) {
    takeSelection();
    ControlWindow::keyPressed(keyCode);
}

void TextBoxWindow::keyReleased(int keyCode) {
    takeSelection();
    textBox_.userReleasedKey(keyCode);
}

TextBoxWindow::Selection TextBoxWindow::selection() const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    return {.start = static_cast<int>(start), .length = static_cast<int>(end - start)};
}

void TextBoxWindow::takeSelection() {
    const Selection now = selection();
    textBox_.userSelected(now.start, now.length);
}

void TextBoxWindow::showText() {
    const ScopedFlag showing(showingText_);
    setWindowText(window(), textBox_.text());
}

void TextBoxWindow::showSelection() {
    const int end = textBox_.selStart() + textBox_.selLength();
    SendMessageW(window(), EM_SETSEL, static_cast<WPARAM>(textBox_.selStart()), end);
}

} // namespace tarnwick
