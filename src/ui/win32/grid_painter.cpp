#include "ui/win32/grid_painter.hpp"

#include "platform/win32/system_text.hpp"
#include "ui/forms/measures.hpp"
#include "ui/win32/check_box_picture.hpp"

#include <algorithm>
#include <string>
#include <string_view>
#include <variant>

namespace tarnwick {
namespace {

// In twips.
constexpr int lineWidth = 15;
constexpr int focusWidth = 30;
constexpr int padding = 45;

COLORREF colourOf(const Colour& colour) {
    if (const auto* const rgb = std::get_if<Rgb>(&colour); rgb != nullptr) {
        return RGB(rgb->red, rgb->green, rgb->blue);
    }
    switch (std::get<SystemColour>(colour)) {
    case SystemColour::Window:
        return GetSysColor(COLOR_WINDOW);
    case SystemColour::WindowText:
        return GetSysColor(COLOR_WINDOWTEXT);
    case SystemColour::ButtonFace:
        return GetSysColor(COLOR_BTNFACE);
    case SystemColour::ButtonText:
        break;
    }
    return GetSysColor(COLOR_BTNTEXT);
}

void fill(HDC context, const RECT& area, COLORREF colour) {
    const GdiHandle<HBRUSH> brush(CreateSolidBrush(colour));
    FillRect(context, &area, brush.get());
}

// Along the right and the lower edge, inside `area`.
void drawLines(HDC context, const RECT& area, int width, COLORREF colour) {
    RECT edge = area;
    edge.left = edge.right - width;
    fill(context, edge, colour);
    edge = area;
    edge.top = edge.bottom - width;
    fill(context, edge, colour);
}

void drawFrame(HDC context, RECT area, int width) {
    for (int line = 0; line < width; ++line) {
        FrameRect(context, &area, GetSysColorBrush(COLOR_HIGHLIGHT));
        InflateRect(&area, -1, -1);
    }
}

int CALLBACK noteFont(const LOGFONTW* /*font*/, const TEXTMETRICW* /*metric*/, DWORD /*type*/,
                      LPARAM found) {
    *reinterpret_cast<bool*>(found) = true; // NOLINT(performance-no-int-to-ptr)
    return 0;
}

bool isInstalled(HDC context, const std::string& name) {
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    toWide(name).copy(wanted.lfFaceName, LF_FACESIZE - 1);
    bool found = false;
    EnumFontFamiliesExW(context, &wanted, noteFont, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

// A symbol font has its pictures in a range of their own, by their bytes; which letters these bytes
// are in the system's code page says nothing about them.
std::wstring symbolText(std::string_view bytes) {
    constexpr unsigned firstSymbol = 0xF000;
    std::wstring text;
    for (const char byte : bytes) {
        text += static_cast<wchar_t>(firstSymbol + static_cast<unsigned char>(byte));
    }
    return text;
}

// Takes the room around the text off `area`: less than usual, and a bit off the text itself, where
// it would be cut off otherwise.
void fit(HDC context, const std::wstring& text, RECT& area, int dpi) {
    SIZE size{};
    GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
    const int wide = toPixels(padding, dpi);
    const int tight = toPixels(lineWidth, dpi);
    const int room = area.right - area.left - size.cx;
    area.left += room >= wide ? wide : tight;
    area.right -= room >= 2 * wide ? wide : 0;
    const int lacking = area.left + size.cx - area.right;
    if (lacking > 0 && lacking <= static_cast<int>(text.size())) {
        SetTextCharacterExtra(context, -1);
    }
}

} // namespace

RECT cellArea(const Grid& grid, Grid::Place place, int dpi) {
    const Bounds cell = grid.cellBounds(place.row, place.column);
    return {.left = toPixels(cell.left, dpi) - gridFrame,
            .top = toPixels(cell.top, dpi) - gridFrame,
            .right = toPixels(cell.left + cell.width, dpi) - gridFrame,
            .bottom = toPixels(cell.top + cell.height, dpi) - gridFrame};
}

int pixelToTwips(int pixel, int dpi) noexcept {
    return toTwips(2 * (pixel + gridFrame) + 1, 2 * dpi);
}

std::optional<Grid::Place> cellAtPixel(const Grid& grid, POINT pixel, int dpi) {
    return grid.cellAt(pixelToTwips(pixel.x, dpi), pixelToTwips(pixel.y, dpi));
}

void GridPainter::paint(HDC context, const RECT& area, const Grid& grid, const Look& look) {
    FillRect(context, &area, GetSysColorBrush(look.enabled ? COLOR_WINDOW : COLOR_BTNFACE));
    RECT header = cellArea(grid, {.row = 0, .column = 0}, look.dpi);
    header.left = area.left;
    header.top = area.top;
    header.right = area.right + toPixels(lineWidth, look.dpi); // no line at its end
    fill(context, header, GetSysColor(COLOR_BTNFACE));
    drawLines(context, header, toPixels(lineWidth, look.dpi), GetSysColor(COLOR_BTNSHADOW));
    SetBkMode(context, TRANSPARENT);
    const int lastShown = std::min(grid.rows() - 1, grid.topRow() + grid.pageRows());
    for (int column = 0; column < grid.columns(); ++column) {
        paintCell(context, grid, {.row = 0, .column = column}, look);
        for (int row = grid.topRow(); row <= lastShown; ++row) {
            paintCell(context, grid, {.row = row, .column = column}, look);
        }
    }
    if (look.focused && grid.rows() > 1) {
        const Grid::Place current{.row = grid.row(), .column = grid.column()};
        const RECT frame = cellArea(grid, current, look.dpi);
        if (grid.rowIsVisible(current.row)) {
            drawFrame(context, frame, toPixels(focusWidth, look.dpi));
        }
    }
}

void GridPainter::paintCell(HDC context, const Grid& grid, Grid::Place place, const Look& look) {
    const Cell& cell = grid.cell(place.row, place.column);
    const RECT area = cellArea(grid, place, look.dpi);
    const bool header = place.row == 0;
    const bool plain = !header && look.enabled;
    fill(context, area, plain ? colourOf(cell.back) : GetSysColor(COLOR_BTNFACE));
    drawLines(context, area, toPixels(lineWidth, look.dpi),
              GetSysColor(header ? COLOR_BTNSHADOW : COLOR_3DLIGHT));
    SetTextColor(context, look.enabled ? colourOf(cell.fore) : GetSysColor(COLOR_GRAYTEXT));
    RECT inside = area;
    inside.right -= toPixels(lineWidth, look.dpi);
    inside.bottom -= toPixels(lineWidth, look.dpi);
    paintText(context, cell, inside, look);
}

void GridPainter::paintText(HDC context, const Cell& cell, RECT area, const Look& look) {
    HFONT own = cell.fontName.empty() ? nullptr : font(cell.fontName, look);
    if (own == nullptr && cell.showsBox()) {
        drawCheckBox(look.window, context, area, cell.showsTick(), look.enabled);
        return;
    }
    const Selected selected(context, own != nullptr ? own : look.font);
    const bool symbols = own != nullptr && cell.fontName == symbolFont;
    const auto text = symbols ? symbolText(cell.text) : toWide(cell.text);
    fit(context, text, area, look.dpi);
    DrawTextW(context, text.data(), static_cast<int>(text.size()), &area,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS |
                  (cell.alignment == Alignment::Centre ? DT_CENTER : DT_LEFT));
    SetTextCharacterExtra(context, 0);
}

HFONT GridPainter::font(const std::string& name, const Look& look) {
    const auto known = fonts_.find(name);
    if (known != fonts_.end()) {
        return known->second.get();
    }
    GdiHandle<HFONT> made;
    const WindowContext context(look.window);
    if (isInstalled(context.get(), name)) {
        LOGFONTW font{};
        GetObjectW(look.font, sizeof font, &font);
        font.lfCharSet = DEFAULT_CHARSET;
        if (name == symbolFont) {
            font.lfCharSet = SYMBOL_CHARSET;
            font.lfHeight = MulDiv(font.lfHeight, 5, 4); // its boxes are small
        }
        font.lfFaceName[toWide(name).copy(font.lfFaceName, LF_FACESIZE - 1)] = L'\0';
        made.reset(CreateFontIndirectW(&font));
    }
    return fonts_.emplace(name, std::move(made)).first->second.get();
}

} // namespace tarnwick
