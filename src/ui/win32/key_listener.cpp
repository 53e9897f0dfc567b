#include "ui/win32/key_listener.hpp"

#include "ui/forms/keys.hpp"
#include "ui/win32/form_view.hpp"
#include "ui/win32/view_messages.hpp"

namespace tarnwick {
namespace {

bool controlWants(const ControlWindow& window, WPARAM key) {
    return window.control().wantsKey(static_cast<int>(key));
}

bool isEnterOrEscape(WPARAM key) {
    return key == Key::enter || key == Key::escape;
}

} // namespace

LRESULT dialogCodeForKey(const ControlWindow& window, LPARAM message) {
    const auto* const key = pointerIn<const MSG*>(message);
    const bool wanted = key != nullptr && key->message == WM_KEYDOWN &&
                        isEnterOrEscape(key->wParam) && controlWants(window, key->wParam);
    return wanted ? DLGC_WANTMESSAGE : 0;
}

KeyListener::KeyListener(ControlWindow& owner) noexcept
    : WindowFilter(owner.window()), owner_(owner) {}

LRESULT KeyListener::filter(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    switch (message) {
    case WM_GETDLGCODE:
        return pass(message, wParam, lParam) | dialogCodeForKey(owner_, lParam);
    case WM_KEYDOWN: {
        // A key that the form deals with must not move the caret behind its back: by then the field
        // may stand over another cell, with its text selected.
        const bool wanted = controlWants(owner_, wParam);
        FormView::guarded(GetParent(window()),
                          [&] { owner_.keyPressed(static_cast<int>(wParam)); });
        return wanted ? 0 : pass(message, wParam, lParam);
    }
    case WM_KEYUP: {
        const LRESULT result = pass(message, wParam, lParam);
        FormView::guarded(GetParent(window()),
                          [&] { owner_.keyReleased(static_cast<int>(wParam)); });
        return result;
    }
    case WM_CHAR:
        if (isEnterOrEscape(wParam) &&
            controlWants(owner_, wParam)) { // their characters are their codes
            return 0;                       // a field would only beep at it
        }
        break;
    default:
        break;
    }
    return pass(message, wParam, lParam);
}

} // namespace tarnwick
