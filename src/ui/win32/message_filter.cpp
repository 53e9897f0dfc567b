#include "ui/win32/message_filter.hpp"

#include "ui/win32/view_messages.hpp"

namespace tarnwick {
namespace {

// The controls are Unicode windows, and stay so: W throughout.
MessageFilter* firstOf(HWND window) noexcept {
    return pointerIn<MessageFilter*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

void setFirstOf(HWND window, MessageFilter* filter) noexcept {
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(filter));
}

WNDPROC replaceProcedure(HWND window, WNDPROC procedure) noexcept {
    return reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

} // namespace

MessageFilter::MessageFilter(HWND window) noexcept : window_(window), behind_(firstOf(window)) {
    setFirstOf(window, this);
    if (behind_ == nullptr) {
        windowsOwn_ = replaceProcedure(window, &MessageFilter::procedure);
    }
}

MessageFilter::~MessageFilter() {
    if (behind_ == nullptr) {
        replaceProcedure(window_, windowsOwn_);
    }
    setFirstOf(window_, behind_);
}

LRESULT MessageFilter::pass(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return behind_ != nullptr ? behind_->filter(message, wParam, lParam)
                              : CallWindowProcW(windowsOwn_, window_, message, wParam, lParam);
}

LRESULT CALLBACK MessageFilter::procedure(HWND window, UINT message, WPARAM wParam,
                                          LPARAM lParam) noexcept {
    return firstOf(window)->filter(message, wParam, lParam);
}

} // namespace tarnwick
