#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace tarnwick {

// Owns a font, brush, pen or bitmap.
struct GdiDeleter {
    void operator()(HGDIOBJ object) const noexcept { DeleteObject(object); }
};
template <typename Handle>
using GdiHandle = std::unique_ptr<std::remove_pointer_t<Handle>, GdiDeleter>;

// Selects an object into a device context for as long as it lives.
class Selected {
  public:
    Selected(HDC context, HGDIOBJ object) noexcept
        : context_(context), before_(SelectObject(context, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    ~Selected() { SelectObject(context_, before_); }

  private:
    HDC context_;
    HGDIOBJ before_;
};

// The device context of a window's content.
class WindowContext {
  public:
    explicit WindowContext(HWND window) noexcept : window_(window), context_(GetDC(window)) {}
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    ~WindowContext() { ReleaseDC(window_, context_); }

    [[nodiscard]] HDC get() const noexcept { return context_; }

  private:
    HWND window_;
    HDC context_;
};

} // namespace tarnwick
