#include "ui/win32/one_line_field.hpp"

#include "ui/win32/gdi_handle.hpp"
#include "ui/win32/view_messages.hpp"

namespace tarnwick {
namespace {

// What the system keeps free above and below the text, in widths of a border.
constexpr int roomInside = 1;

int heightOfText(HWND window) noexcept {
    const WindowContext context(window);
    const Selected font(context.get(), pointerIn<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)));
    TEXTMETRICW metrics{};
    GetTextMetricsW(context.get(), &metrics);
    return metrics.tmHeight + 2 * roomInside * GetSystemMetrics(SM_CYBORDER);
}

// Takes the half of what the text does not need off either side.
void shrink(RECT& content, int needed) noexcept {
    const int spare = content.bottom - content.top - needed;
    if (spare > 0) {
        content.top += spare / 2;
        content.bottom = content.top + needed;
    }
}

// The strips that were taken off, inside the border.
void paintStrips(HWND window) noexcept {
    RECT field{};
    RECT content{};
    GetWindowRect(window, &field);
    GetClientRect(window, &content);
    MapWindowPoints(window, HWND_DESKTOP, reinterpret_cast<POINT*>(&content), 2);
    OffsetRect(&content, -field.left, -field.top);
    const int border = content.left; // the same on every side
    const bool writable = IsWindowEnabled(window) != FALSE &&
                          (GetWindowLongPtrW(window, GWL_STYLE) & ES_READONLY) == 0;
    HBRUSH brush = GetSysColorBrush(writable ? COLOR_WINDOW : COLOR_BTNFACE);
    HDC context = GetWindowDC(window);
    const RECT above{
        .left = content.left, .top = border, .right = content.right, .bottom = content.top};
    const RECT below{.left = content.left,
                     .top = content.bottom,
                     .right = content.right,
                     .bottom = field.bottom - field.top - border};
    FillRect(context, &above, brush);
    FillRect(context, &below, brush);
    ReleaseDC(window, context);
}

void drawAgain(HWND window) noexcept {
    RedrawWindow(window, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
}

} // namespace

OneLineField::OneLineField(HWND window) noexcept
    : WindowFilter(window),
      isOne_(hasBorder(window) && (GetWindowLongPtrW(window, GWL_STYLE) & ES_MULTILINE) == 0) {}

LRESULT OneLineField::filter(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const LRESULT result = pass(message, wParam, lParam);
    if (!isOne_) {
        return result;
    }
    switch (message) {
    case WM_NCCALCSIZE:
        shrink(*pointerIn<RECT*>(lParam), heightOfText(window())); // the first member in both cases
        break;
    case WM_NCPAINT:
        paintStrips(window());
        break;
    case WM_ENABLE:
        drawAgain(window());
        break;
    case WM_NCHITTEST:
        return result == HTNOWHERE || result == HTBORDER ? HTCLIENT : result;
    default:
        break;
    }
    return result;
}

void OneLineField::measure() noexcept {
    if (isOne_) {
        SetWindowPos(window(), nullptr, 0, 0, 0, 0,
                     SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

} // namespace tarnwick
