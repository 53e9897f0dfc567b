#include "ui/win32/window_filter.hpp"

#include "ui/win32/view_messages.hpp"

namespace tarnwick {
namespace {

// The controls are Unicode windows, and stay so: W throughout.
WindowFilter* firstOf(HWND window) noexcept {
    return pointerIn<WindowFilter*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

void setFirstOf(HWND window, WindowFilter* filter) noexcept {
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(filter));
}

void setProcedure(HWND window, WNDPROC procedure) noexcept {
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

} // namespace

WindowFilter::WindowFilter(HWND window) noexcept : window_(window), behind_(firstOf(window)) {
    setFirstOf(window, this);
    if (behind_ == nullptr) {
        windowsOwn_ = pointerIn<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
        setProcedure(window, &WindowFilter::procedure);
    }
}

// A procedure that somebody has put before ours since stays, and goes on calling ours.
WindowFilter::~WindowFilter() {
    setFirstOf(window_, behind_);
    if (behind_ == nullptr &&
        pointerIn<WNDPROC>(GetWindowLongPtrW(window_, GWLP_WNDPROC)) == &WindowFilter::procedure) {
        setProcedure(window_, windowsOwn_);
    }
}

LRESULT WindowFilter::pass(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return behind_ != nullptr ? behind_->filter(message, wParam, lParam)
                              : CallWindowProcW(windowsOwn_, window_, message, wParam, lParam);
}

LRESULT CALLBACK WindowFilter::procedure(HWND window, UINT message, WPARAM wParam,
                                         LPARAM lParam) noexcept {
    if (WindowFilter* const first = firstOf(window); first != nullptr) {
        return first->filter(message, wParam, lParam);
    }
    return CallWindowProcW(
        pointerIn<WNDPROC>(static_cast<LONG_PTR>(GetClassLongPtrW(window, GCLP_WNDPROC))), window,
        message, wParam, lParam);
}

} // namespace tarnwick
