#include "ui/win32/dialog_view.hpp"

#include "platform/run_time_error.hpp"
#include "ui/forms/measures.hpp"
#include "ui/win32/view_messages.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace tarnwick {
namespace {

[[noreturn]] void raiseMisfit(const std::string& what) {
    ErrorRecord record = RunTimeError(ErrorNumber::InternalError).record();
    record.description += ": " + what;
    throw RunTimeError(std::move(record));
}

std::string nameInResource(HWND window) {
    std::array<char, 128> name{};
    const int length = GetWindowTextA(window, name.data(), static_cast<int>(name.size()));
    return {name.data(), static_cast<std::size_t>(length)};
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

} // namespace

void DialogView::runModal() {
    const INT_PTR result =
        DialogBoxParamA(GetModuleHandleA(nullptr), form_.name().c_str(), GetActiveWindow(),
                        &DialogView::procedure, reinterpret_cast<LPARAM>(this));
    const DWORD code = GetLastError();
    windows_.clear();
    form_.detach();
    if (error_) {
        form_.hide();
        std::rethrow_exception(std::exchange(error_, nullptr));
    }
    if (result == -1) {
        throw RunTimeError(ErrorNumber::InternalError, static_cast<std::int32_t>(code));
    }
}

// An exception must not pass through the system's code: it ends the dialog, and is raised again
// behind it.
INT_PTR CALLBACK DialogView::procedure(HWND dialog, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
        pointerIn<DialogView*>(lParam)->dialog_ = dialog;
    }
    auto* const view = pointerIn<DialogView*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (view == nullptr) {
        return FALSE;
    }
    try {
        return view->handle(message, wParam, lParam) ? TRUE : FALSE;
    } catch (...) {
        view->fail(std::current_exception());
        return TRUE;
    }
}

void DialogView::fail(std::exception_ptr error) noexcept {
    if (!error_) {
        error_ = std::move(error);
    }
    close();
}

void DialogView::close() noexcept {
    EndDialog(dialog_, 0);
}

// Whether the message is dealt with. (WM_INITDIALOG: false says that the focus is set.)
bool DialogView::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        open();
        return false;
    case WM_COMMAND:
        command(LOWORD(wParam), HIWORD(wParam), pointerIn<HWND>(lParam));
        return true;
    case WM_CLOSE:
        form_.userClosed();
        return true;
    case WM_SIZE:
        resized(wParam);
        return true;
    case WM_DPICHANGED:
        PostMessageA(dialog_, ViewMessage::resolutionChanged, 0, 0);
        return false;
    case ViewMessage::resolutionChanged:
        resolutionChanged();
        return true;
    case ViewMessage::focusMoved:
        lookWhereTheFocusIs();
        return true;
    case ViewMessage::keyPressed:
        find(pointerIn<HWND>(lParam))->keyPressed(static_cast<int>(wParam));
        return true;
    case ViewMessage::keyReleased:
        find(pointerIn<HWND>(lParam))->keyReleased(static_cast<int>(wParam));
        return true;
    case WM_DESTROY:
        windows_.clear(); // while the windows are still there
        return false;
    default:
        return false;
    }
}

void DialogView::open() {
    bindControls();
    SetWindowTextA(dialog_, form_.caption().c_str());
    const RECT screen = screenArea();
    form_.measured(contentAndFrame(), {.width = toTwips(screen.right - screen.left, dpi()),
                                       .height = toTwips(screen.bottom - screen.top, dpi())});
    form_.attach(*this);
    form_.show();
    if (!form_.visible()) {
        close();
        return;
    }
    if (Control* const focused = form_.focused(); focused != nullptr) {
        const auto window = std::ranges::find_if(
            windows_, [focused](const auto& each) { return &each->control() == focused; });
        SendMessageA(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>((*window)->window()), TRUE);
    }
}

void DialogView::bindControls() {
    for (HWND window = GetWindow(dialog_, GW_CHILD); window != nullptr;
         window = GetWindow(window, GW_HWNDNEXT)) {
        const std::string name = nameInResource(window);
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

void DialogView::command(WORD id, WORD code, HWND window) {
    if (ControlWindow* const bound = find(window); bound != nullptr) {
        if (bound->isFocusNotice(code) && !std::exchange(focusMoved_, true)) {
            // The focus is still on its way, and no message may be shown before it has arrived.
            PostMessageA(dialog_, ViewMessage::focusMoved, 0, 0);
        }
        bound->notified(code);
    } else if (id == IDOK) {
        form_.userPressedEnter();
    } else if (id == IDCANCEL) {
        form_.userPressedEscape();
    }
}

void DialogView::lookWhereTheFocusIs() {
    focusMoved_ = false;
    if (const ControlWindow* const window = find(GetFocus()); window != nullptr) {
        form_.userMovedFocus(window->control());
    } else {
        form_.windowDeactivated();
    }
}

void DialogView::resized(WPARAM kind) {
    form_.userResized(contentAndFrame(), stateOf(kind));
}

void DialogView::changed(Property property) {
    if (property == Property::Caption) {
        SetWindowTextA(dialog_, form_.caption().c_str());
    } else if (property == Property::Bounds) {
        place();
    } else if (property == Property::Visible && !form_.visible()) {
        close();
    }
}

// Puts the middle of the window where the form has it: the frame that the system draws is not
// exactly the one that the form counts.
void DialogView::place() {
    const RECT screen = screenArea();
    RECT now{};
    GetWindowRect(dialog_, &now);
    const Bounds& wanted = form_.window();
    const int middle = screen.left + toPixels(wanted.left + wanted.width / 2, dpi());
    const int centre = screen.top + toPixels(wanted.top + wanted.height / 2, dpi());
    SetWindowPos(dialog_, nullptr, middle - (now.right - now.left) / 2,
                 centre - (now.bottom - now.top) / 2, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DialogView::resolutionChanged() {
    for (const auto& window : windows_) {
        window->resolutionChanged();
    }
}

ControlWindow* DialogView::find(HWND window) const noexcept {
    const auto found = std::ranges::find_if(
        windows_, [window](const auto& each) { return each->window() == window; });
    return found == windows_.end() ? nullptr : found->get();
}

int DialogView::dpi() const noexcept {
    return static_cast<int>(GetDpiForWindow(dialog_));
}

Size DialogView::contentAndFrame() const noexcept {
    RECT content{};
    GetClientRect(dialog_, &content);
    return {.width = toTwips(content.right, dpi()) + windowFrame.width,
            .height = toTwips(content.bottom, dpi()) + windowFrame.height};
}

RECT DialogView::screenArea() const noexcept {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromWindow(dialog_, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcMonitor;
}

} // namespace tarnwick
