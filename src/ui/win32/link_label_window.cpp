#include "ui/win32/link_label_window.hpp"

#include "platform/win32/system_text.hpp"
#include "ui/forms/measures.hpp"
#include "ui/win32/window_font.hpp"

namespace tarnwick {
namespace {

constexpr UINT textFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
// In twips, before the text; behind it there is twice as much, for the mark of the focus and for
// letters that reach beyond their measure.
constexpr int margin = 30;

// The usual blue, which a theme's own colour for links need not be; but whoever wants a high
// contrast has chosen the colours.
COLORREF linkColour() noexcept {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0);
    return (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0 ? GetSysColor(COLOR_HOTLIGHT)
                                                        : RGB(0, 102, 204);
}

} // namespace

void LinkLabelWindow::changed(Property property) {
    ClickableWindow::changed(property);
    if (property == Property::Caption) {
        fitResolution();
    }
}

// As wide as its text: what lies beside that is no link.
void LinkLabelWindow::fitResolution() {
    LOGFONTW description = fontOf(GetParent(window()));
    description.lfUnderline = TRUE;
    font_.reset(CreateFontIndirectW(&description));
    RECT text{};
    {
        const WindowContext context(window());
        const Selected font(context.get(), font_.get());
        DrawTextW(context.get(), toWide(link_.caption()).c_str(), -1, &text,
                  textFormat | DT_CALCRECT);
    }
    RECT area{};
    GetClientRect(window(), &area);
    SetWindowPos(window(), nullptr, 0, 0, text.right + 3 * toPixels(margin, dpi()), area.bottom,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    measure();
    InvalidateRect(window(), nullptr, TRUE);
}

void LinkLabelWindow::drawItem(const DRAWITEMSTRUCT& item) {
    RECT area = item.rcItem;
    FillRect(item.hDC, &area, GetSysColorBrush(COLOR_BTNFACE));
    const Selected font(item.hDC, font_.get());
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    SetTextColor(item.hDC, disabled ? GetSysColor(COLOR_GRAYTEXT) : linkColour());
    SetBkMode(item.hDC, TRANSPARENT);
    area.left += toPixels(margin, dpi());
    DrawTextW(item.hDC, toWide(link_.caption()).c_str(), -1, &area, textFormat);
    if ((item.itemState & ODS_FOCUS) != 0) {
        DrawFocusRect(item.hDC, &item.rcItem);
    }
}

} // namespace tarnwick
