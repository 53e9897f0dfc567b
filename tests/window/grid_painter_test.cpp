// The ticks of a grid where the system has their font.

#include "ui/forms/form.hpp"
#include "ui/win32/gdi_handle.hpp"
#include "ui/win32/grid_painter.hpp"
#include "window/symbol_font.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace tarnwick {
namespace {

constexpr int dpi = 96;

// The rows of pixels of that cell, from its upper edge, that have something red in them.
std::vector<int> redRowsOf(const Cell& cell) {
    Form form("frmGrid", "Grid");
    Grid grid(form, "grd", 1);
    grid.setBounds({.left = 0, .top = 0, .width = 1500, .height = 1500});
    grid.setRowHeight(600);
    grid.setColumnWidth(0, 900);
    grid.setRows(2);
    grid.setCell(1, 0, cell);
    const WindowContext screen(nullptr);
    const RECT area{.left = 0, .top = 0, .right = 100, .bottom = 100};
    HDC context = CreateCompatibleDC(screen.get());
    std::vector<int> rows;
    {
        const GdiHandle<HBITMAP> picture(CreateCompatibleBitmap(screen.get(), 100, 100));
        const Selected selected(context, picture.get());
        const GdiHandle<HFONT> font(CreateFontW(
            -16, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
            CLIP_DEFAULT_PRECIS, NONANTIALIASED_QUALITY, DEFAULT_PITCH, L"Tahoma"));
        GridPainter painter;
        painter.paint(context, area, grid, {.window = nullptr, .font = font.get(), .dpi = dpi});
        const RECT place = cellArea(grid, {.row = 1, .column = 0}, dpi);
        for (int y = place.top; y < place.bottom; ++y) {
            for (int x = place.left; x < place.right; ++x) {
                if (GetPixel(context, x, y) == RGB(255, 0, 0)) {
                    rows.push_back(y - static_cast<int>(place.top));
                    break;
                }
            }
        }
    }
    DeleteDC(context);
    return rows;
}

Cell cellOf(const char* glyph) {
    return {.text = glyph,
            .fontName = symbolFont,
            .alignment = Alignment::Centre,
            .fore = Rgb{.red = 255, .green = 0, .blue = 0}};
}

// A letter of the form's font is 16 pixels high; a symbol is a quarter larger.
TEST(GridPainter, The_boxes_are_drawn_from_the_symbol_font_by_their_bytes) {
    const SymbolFont font(symbolFont);
    ASSERT_TRUE(font.installed());
    const auto ticked = redRowsOf(cellOf(tickedGlyph));
    const auto empty = redRowsOf(cellOf(emptyGlyph));
    EXPECT_EQ(ticked.size(), 20U);
    ASSERT_EQ(empty.size(), 10U);
    EXPECT_EQ(ticked.back(), empty.back());
}

} // namespace
} // namespace tarnwick
