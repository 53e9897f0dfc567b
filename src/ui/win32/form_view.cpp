#include "ui/win32/form_view.hpp"

#include "platform/run_time_error.hpp"
#include "ui/forms/access_keys.hpp"
#include "ui/forms/captioned.hpp"
#include "ui/forms/measures.hpp"
#include "ui/forms/window_place.hpp"
#include "ui/win32/grid_window.hpp"
#include "ui/win32/resource_names.hpp"
#include "ui/win32/session_hold.hpp"
#include "ui/win32/view_messages.hpp"
#include "ui/win32/window_text.hpp"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <utility>

namespace tarnwick {
namespace {

// Enter. The system's default button may be the one that had the focus last, so which button
// answers is the form's to say.
bool isPressFromElsewhere(const ControlWindow& clicked, WORD code) {
    return code == BN_CLICKED && GetFocus() != clicked.window() &&
           dynamic_cast<const Button*>(&clicked.control()) != nullptr;
}

[[noreturn]] void raiseMisfit(const std::string& what) {
    ErrorRecord record = RunTimeError(ErrorNumber::InternalError).record();
    record.description += ": " + what;
    throw RunTimeError(std::move(record));
}

WindowState stateOf(WPARAM kind) noexcept {
    switch (kind) {
    case SIZE_MINIMIZED:
        return WindowState::Minimized;
    case SIZE_MAXIMIZED:
        return WindowState::Maximized;
    default:
        return WindowState::Normal;
    }
}

LPCWSTR cursorOf(MousePointer pointer) noexcept {
    switch (pointer) {
    case MousePointer::Busy:
        return IDC_APPSTARTING;
    case MousePointer::ArrowQuestion:
        return IDC_HELP;
    default:
        return IDC_ARROW;
    }
}

// Not SetFocus: the dialog must know, for the default button's sake.
void goTo(HWND dialog, HWND control) noexcept {
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

} // namespace

FormView::FormView(Form& form) : form_(form) {
    const INITCOMMONCONTROLSEX kinds{.dwSize = sizeof kinds,
                                     .dwICC = ICC_STANDARD_CLASSES | ICC_BAR_CLASSES |
                                              ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&kinds);
    GridWindow::registerClass();
}

INT_PTR CALLBACK FormView::procedure(HWND dialog, UINT message, WPARAM wParam,
                                     LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        pointerIn<FormView*>(lParam)->dialog_ = dialog;
    }
    FormView* const view = of(dialog);
    bool dealtWith = view != nullptr;
    if (view != nullptr) {
        guarded(dialog, [&] { dealtWith = view->handle(message, wParam, lParam); });
    }
    return dealtWith ? TRUE : FALSE;
}

FormView* FormView::of(HWND dialog) noexcept {
    return pointerIn<FormView*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

void FormView::fail(std::exception_ptr error) noexcept {
    if (std::exchange(failed_, true)) {
        return; // later errors are dropped: the first one is being reported
    }
    try {
        if (!form_.viewFailed(error)) {
            error_ = std::move(error);
        }
    } catch (...) {
        error_ = std::current_exception();
    }
    close();
}

void FormView::release() {
    windows_.clear();
    form_.detach();
    dialog_ = nullptr;
    if (error_) {
        form_.hide();
        std::rethrow_exception(std::exchange(error_, nullptr));
    }
}

// Whether the message is dealt with. (WM_INITDIALOG: false says that the focus is set.)
bool FormView::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        made();
        return false;
    case WM_COMMAND:
        command(LOWORD(wParam), HIWORD(wParam), pointerIn<HWND>(lParam));
        return true;
    case WM_CLOSE:
        // The dialog in front of it needs its form, and is to be dealt with first.
        if (IsWindowEnabled(dialog_) != FALSE) {
            form_.userClosed();
        }
        return true;
    case WM_QUERYENDSESSION: {
        const SessionHold hold(dialog_);
        form_.sessionIsEnding();
        answer(TRUE); // nobody is held up any longer
        return true;
    }
    case WM_ENDSESSION:
        form_.sessionEnded(wParam != FALSE);
        return true;
    case WM_DESTROY:
        windows_.clear(); // while the windows are still there
        return false;
    default:
        return handleLook(message, wParam, lParam);
    }
}

// The part about how it looks.
bool FormView::handleLook(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        resized(wParam);
        return true;
    case WM_MOVE:
        moved();
        return true;
    case WM_SETCURSOR:
        mouseOver(pointerIn<HWND>(static_cast<LONG_PTR>(wParam)), LOWORD(lParam));
        return showPointer(LOWORD(lParam));
    case WM_DRAWITEM:
        if (ControlWindow* const drawn = find(pointerIn<const DRAWITEMSTRUCT*>(lParam)->hwndItem);
            drawn != nullptr) {
            drawn->drawItem(*pointerIn<const DRAWITEMSTRUCT*>(lParam));
        }
        return true;
    case WM_GETDPISCALEDSIZE:
        if (const auto size = sizeAt(static_cast<int>(wParam)); size) {
            *pointerIn<SIZE*>(lParam) = *size;
            answer(TRUE);
            return true;
        }
        return false;
    case WM_DPICHANGED:
        PostMessageW(dialog_, ViewMessage::resolutionChanged, 0, 0);
        return false;
    default:
        return handleOwn(message, wParam);
    }
}

bool FormView::handleOwn(UINT message, WPARAM wParam) {
    switch (message) {
    case ViewMessage::resolutionChanged:
        resolutionChanged();
        return true;
    case ViewMessage::focusMoved:
        lookWhereTheFocusIs();
        return true;
    case ViewMessage::functionKey:
        form_.userPressedFunctionKey(static_cast<int>(wParam));
        return true;
    case ViewMessage::accessKey: {
        const auto key = toSystemText(std::wstring(1, static_cast<wchar_t>(wParam)));
        answer(key && key->size() == 1 && pressedAccessKey(key->front()) ? TRUE : FALSE);
        return true;
    }
    default:
        return false;
    }
}

void FormView::answer(LRESULT result) const noexcept {
    SetWindowLongPtrW(dialog_, DWLP_MSGRESULT, result);
}

void FormView::bind() {
    // Even in a window opened by mouse, a user of the keyboard must see where the focus is.
    SendMessageW(dialog_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL),
                 0);
    bindControls();
    menuBar_.show(dialog_, form_.menu());
    setWindowText(dialog_, form_.caption());
    icons_.show(dialog_);
    const Screen screen = formsScreen();
    form_.measured(windowSize(),
                   {.width = toTwips(screen.whole.right - screen.whole.left, screen.dpi),
                    .height = toTwips(screen.whole.bottom - screen.whole.top, screen.dpi)});
    form_.attach(*this);
    resized(SIZE_RESTORED);
}

void FormView::bindControls() {
    const auto names = textsInResource(form_.name());
    for (HWND window = GetWindow(dialog_, GW_CHILD); window != nullptr;
         window = GetWindow(window, GW_HWNDNEXT)) {
        const auto found = names.find(GetDlgCtrlID(window));
        const std::string name = found == names.end() ? "" : found->second;
        Control* const control = form_.find(name);
        if (control == nullptr) {
            raiseMisfit(form_.name() + " has no control for \"" + name + "\"");
        }
        windows_.push_back(makeControlWindow(*control, window));
    }
    if (windows_.size() != form_.controls().size()) {
        raiseMisfit("the resource of " + form_.name() + " lacks a control");
    }
}

void FormView::showFocus() noexcept {
    if (HWND window = windowOf(form_.focused()); window != nullptr) {
        goTo(dialog_, window);
    }
}

// Whether the key leads anywhere.
bool FormView::pressedAccessKey(char key) const noexcept {
    if (opensMenu(form_, key)) {
        PostMessageW(dialog_, WM_SYSCOMMAND, SC_KEYMENU, static_cast<unsigned char>(key));
        return true;
    }
    const AccessKeyTarget target = accessKeyTarget(form_, key);
    HWND window = windowOf(target.control);
    if (window == nullptr) {
        return false;
    }
    goTo(dialog_, window);
    if (target.isOnly && dynamic_cast<const Clickable*>(target.control) != nullptr) {
        SendMessageW(window, BM_CLICK, 0, 0);
    }
    return true;
}

HWND FormView::windowOf(const Control* control) const noexcept {
    const auto found = std::ranges::find_if(
        windows_, [control](const auto& each) { return &each->control() == control; });
    return found == windows_.end() ? nullptr : (*found)->window();
}

void FormView::command(WORD id, WORD code, HWND window) {
    const bool escape = id == IDCANCEL && code == BN_CLICKED && GetFocus() != window;
    if (escape) { // also where the system takes it for a click on Cancel
        form_.userPressedEscape();
    } else if (ControlWindow* const bound = find(window); bound != nullptr) {
        if (bound->isFocusNotice(code) && !std::exchange(focusMoved_, true)) {
            // The focus is still on its way, and no message may be shown before it has arrived.
            PostMessageW(dialog_, ViewMessage::focusMoved, 0, 0);
        }
        if (isPressFromElsewhere(*bound, code)) {
            form_.userPressedEnter();
        } else {
            bound->notified(code);
        }
    } else if (id == IDOK) {
        form_.userPressedEnter();
    } else if (window == nullptr) {
        menuBar_.choose(id);
    }
}

void FormView::lookWhereTheFocusIs() {
    focusMoved_ = false;
    HWND focused = GetFocus();
    if (const ControlWindow* const window = find(focused); window != nullptr) {
        form_.userMovedFocus(window->control());
    } else if (const ControlWindow* const outer = find(GetParent(focused)); outer != nullptr) {
        form_.userMovedFocus(outer->control()); // the field inside a combo box
    }
    // Else another window has the keyboard: the control keeps the focus for when the user is back.
}

void FormView::moved() {
    RECT window{};
    if (IsIconic(dialog_) == FALSE && GetWindowRect(dialog_, &window) != FALSE) {
        const Screen screen = formsScreen();
        form_.userMoved(toTwips(window.left - screen.whole.left, screen.dpi),
                        toTwips(window.top - screen.whole.top, screen.dpi));
    }
}

void FormView::resized(WPARAM kind) {
    if (kind != SIZE_MINIMIZED) {
        measureFrame();
        for (const auto& window : windows_) {
            window->formResized();
        }
    }
    form_.userResized(windowSize(), stateOf(kind));
}

void FormView::measureFrame() {
    const Size window = windowSize();
    RECT content{};
    GetClientRect(dialog_, &content);
    form_.measuredFrame({.width = window.width - toTwips(content.right, dpi()),
                         .height = window.height - toTwips(content.bottom, dpi())});
}

void FormView::changed(Property property) {
    if (property == Property::Caption) {
        setWindowText(dialog_, form_.caption());
    } else if (property == Property::Bounds) {
        place();
    } else if (property == Property::Size) {
        applySize();
    } else if (property == Property::Pointer) {
        SetCursor(LoadCursorW(nullptr, cursorOf(form_.mousePointer())));
    } else if (property == Property::Visible && !form_.visible()) {
        close();
    }
}

// The windows under the mouse ask the dialog for the pointer whenever it moves, before they show
// their own.
void FormView::mouseOver(HWND window, WORD hit) {
    if (hit != HTCLIENT) {
        return;
    }
    if (const ControlWindow* const bound = find(window); bound != nullptr) {
        bound->control().userMovedMouse();
    } else if (window == dialog_) {
        form_.userMovedMouse();
    }
}

bool FormView::showPointer(WORD hit) const noexcept {
    if (form_.mousePointer() == MousePointer::Default || hit != HTCLIENT) {
        return false;
    }
    SetCursor(LoadCursorW(nullptr, cursorOf(form_.mousePointer())));
    answer(TRUE);
    return true;
}

// Puts the middle of the window where the form has it (the frame that the system draws is not
// exactly the one that the form counts), but not under a taskbar.
void FormView::place() {
    const Screen screen = formsScreen();
    RECT now{};
    GetWindowRect(dialog_, &now);
    const Bounds& wanted = form_.window();
    const int middle = screen.whole.left + toPixels(wanted.left + wanted.width / 2, screen.dpi);
    const int centre = screen.whole.top + toPixels(wanted.top + wanted.height / 2, screen.dpi);
    const int width = now.right - now.left;
    const int height = now.bottom - now.top;
    const Bounds place = movedInto(
        boundsOf(screen.workArea),
        {.left = middle - width / 2, .top = centre - height / 2, .width = width, .height = height});
    SetWindowPos(dialog_, nullptr, place.left, place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormView::resolutionChanged() {
    icons_.show(dialog_);
    for (const auto& window : windows_) {
        window->resolutionChanged();
    }
    applySize();
}

ControlWindow* FormView::find(HWND window) const noexcept {
    const auto found = std::ranges::find_if(
        windows_, [window](const auto& each) { return each->window() == window; });
    return found == windows_.end() ? nullptr : found->get();
}

// The one that the form counts from. A dialog shares its owner's: it may be on another one as yet,
// and of another resolution.
Screen FormView::formsScreen() const noexcept {
    HWND owner = GetWindow(dialog_, GW_OWNER);
    return screenOf(owner == nullptr ? dialog_ : owner);
}

} // namespace tarnwick
