#include "ui/win32/key_listener.hpp"

#include "ui/forms/keys.hpp"
#include "ui/win32/view_messages.hpp"

namespace tarnwick {
namespace {

LRESULT tellDialog(HWND window, ViewMessage what, WPARAM key) {
    return SendMessageW(GetParent(window), what, key, reinterpret_cast<LPARAM>(window));
}

bool controlWants(HWND window, WPARAM key) {
    return tellDialog(window, ViewMessage::wantsKey, key) != 0;
}

bool isEnterOrEscape(WPARAM key) {
    return key == Key::enter || key == Key::escape;
}

} // namespace

LRESULT dialogCodeForKey(HWND window, LPARAM message) {
    const auto* const key = pointerIn<const MSG*>(message);
    const bool wanted = key != nullptr && key->message == WM_KEYDOWN &&
                        isEnterOrEscape(key->wParam) && controlWants(window, key->wParam);
    return wanted ? DLGC_WANTMESSAGE : 0;
}

LRESULT KeyListener::filter(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    switch (message) {
    case WM_GETDLGCODE:
        return pass(message, wParam, lParam) | dialogCodeForKey(window(), lParam);
    case WM_KEYDOWN: {
        // A key that the form deals with must not move the caret behind its back: by then the field
        // may stand over another cell, with its text selected.
        const bool wanted = controlWants(window(), wParam);
        tellDialog(window(), ViewMessage::keyPressed, wParam);
        return wanted ? 0 : pass(message, wParam, lParam);
    }
    case WM_KEYUP: {
        const LRESULT result = pass(message, wParam, lParam);
        tellDialog(window(), ViewMessage::keyReleased, wParam);
        return result;
    }
    case WM_CHAR:
        if (isEnterOrEscape(wParam) &&
            controlWants(window(), wParam)) { // their characters are their codes
            return 0;                         // a field would only beep at it
        }
        break;
    default:
        break;
    }
    return pass(message, wParam, lParam);
}

} // namespace tarnwick
