#include "ui/win32/program_icon.hpp"

#include <utility>

namespace tarnwick {
namespace {

// The window lets go of its old icon before that is destroyed.
void give(HWND window, WPARAM which, IconHandle& held, int width, int height) {
    const auto dpi = GetDpiForWindow(window);
    IconHandle icon = loadIcon(L"logo", {.cx = GetSystemMetricsForDpi(width, dpi),
                                         .cy = GetSystemMetricsForDpi(height, dpi)});
    if (icon != nullptr) {
        SendMessageW(window, WM_SETICON, which, reinterpret_cast<LPARAM>(icon.get()));
        held = std::move(icon);
    }
}

} // namespace

IconHandle loadIcon(const std::wstring& name, SIZE size) {
    return IconHandle(static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), name.c_str(),
                                                    IMAGE_ICON, static_cast<int>(size.cx),
                                                    static_cast<int>(size.cy), LR_DEFAULTCOLOR)));
}

void WindowIcons::show(HWND window) {
    if ((GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_DLGMODALFRAME) != 0) {
        return;
    }
    give(window, ICON_BIG, large_, SM_CXICON, SM_CYICON);
    give(window, ICON_SMALL, small_, SM_CXSMICON, SM_CYSMICON);
}

} // namespace tarnwick
