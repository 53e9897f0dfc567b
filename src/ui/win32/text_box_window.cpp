#include "ui/win32/text_box_window.hpp"

#include "ui/win32/view_messages.hpp"

#include <commctrl.h>

#include <cstddef>

namespace tarnwick {
namespace {

constexpr UINT_PTR keyListener = 1;

// Tells the dialog of keys, which a field itself reports to nobody.
LRESULT CALLBACK listenToKeys(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                              UINT_PTR /*id*/, DWORD_PTR /*data*/) {
    const auto tellDialog = [&](ViewMessage what) {
        SendMessageA(GetParent(window), what, wParam, reinterpret_cast<LPARAM>(window));
    };
    if (message == WM_KEYDOWN) {
        tellDialog(keyPressed);
    }
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    if (message == WM_KEYUP) {
        tellDialog(keyReleased);
    }
    return result;
}

} // namespace

TextBoxWindow::TextBoxWindow(TextBox& textBox, HWND window)
    : ControlWindow(textBox, window), textBox_(textBox) {
    SendMessageA(window, EM_SETLIMITTEXT, 0, 0); // no limit
    SetWindowSubclass(window, listenToKeys, keyListener, 0);
}

TextBoxWindow::~TextBoxWindow() {
    RemoveWindowSubclass(window(), listenToKeys, keyListener);
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
        SendMessageA(window(), EM_SETREADONLY, textBox_.readOnly() ? TRUE : FALSE, 0);
        break;
    case Property::Font:
        showFont();
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

void TextBoxWindow::resolutionChanged() {
    ControlWindow::resolutionChanged();
    showFont();
}

void TextBoxWindow::notified(WORD code) {
    if (code == EN_CHANGE && !showingText_) {
        const Selection now = selection();
        textBox_.userChangedText(windowText(), now.start, now.length);
    } else if (isFocusNotice(code)) {
        takeSelection();
    }
}

void TextBoxWindow::keyPressed(int keyCode) {
    takeSelection();
    textBox_.userPressedKey(keyCode);
}

void TextBoxWindow::keyReleased(int keyCode) {
    takeSelection();
    textBox_.userReleasedKey(keyCode);
}

bool TextBoxWindow::isFocusNotice(WORD code) const noexcept {
    return code == EN_SETFOCUS || code == EN_KILLFOCUS;
}

std::string TextBoxWindow::windowText() const {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window())), '\0');
    const int length = GetWindowTextA(window(), text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

TextBoxWindow::Selection TextBoxWindow::selection() const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageA(window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    return {.start = static_cast<int>(start), .length = static_cast<int>(end - start)};
}

void TextBoxWindow::takeSelection() {
    const Selection now = selection();
    textBox_.userSelected(now.start, now.length);
}

void TextBoxWindow::showText() {
    showingText_ = true;
    SetWindowTextA(window(), textBox_.text().c_str());
    showingText_ = false;
}

void TextBoxWindow::showSelection() {
    const int end = textBox_.selStart() + textBox_.selLength();
    SendMessageA(window(), EM_SETSEL, static_cast<WPARAM>(textBox_.selStart()), end);
}

void TextBoxWindow::showFont() {
    const Font& wanted = textBox_.font();
    if (wanted.name.empty()) {
        return;
    }
    constexpr int pointsPerInch = 72;
    decltype(font_) font(CreateFontA(-MulDiv(wanted.points, dpi(), pointsPerInch), 0, 0, 0,
                                     FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                     OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                     FIXED_PITCH | FF_MODERN, wanted.name.c_str()));
    SendMessageA(window(), WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    font_ = std::move(font);
}

} // namespace tarnwick
