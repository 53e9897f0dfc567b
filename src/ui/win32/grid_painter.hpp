#pragma once

#include "ui/forms/grid.hpp"
#include "ui/win32/gdi_handle.hpp"

#include <windows.h>

#include <map>
#include <optional>
#include <string>

namespace tarnwick {

// Draws a grid.
class GridPainter {
  public:
    // What the grid's window is at the moment.
    struct Look {
        HWND window = nullptr;
        HFONT font = nullptr; // the form's own
        int dpi = 0;
        bool enabled = true;
        bool focused = false;
    };

    // Into the window's content, which is `area`.
    void paint(HDC context, const RECT& area, const Grid& grid, const Look& look);
    // The fonts are others now, or of another size.
    void forgetFonts() { fonts_.clear(); }

  private:
    void paintCell(HDC context, const Grid& grid, Grid::Place place, const Look& look);
    void paintText(HDC context, const Cell& cell, RECT area, const Look& look);
    // Null where it is not installed.
    [[nodiscard]] HFONT font(const std::string& name, const Look& look);

    std::map<std::string, GdiHandle<HFONT>> fonts_;
};

// Where the window of a grid of `dpi` has the cell, within its content.
[[nodiscard]] RECT cellArea(const Grid& grid, Grid::Place place, int dpi);

// From a pixel of that content to a place in the grid. The middle of a pixel tells for sure which
// side of an edge it is on.
[[nodiscard]] int pixelToTwips(int pixel, int dpi) noexcept;
[[nodiscard]] std::optional<Grid::Place> cellAtPixel(const Grid& grid, POINT pixel, int dpi);

// The line that the system draws around the grid's content, in pixels.
inline constexpr int gridFrame = 1;

} // namespace tarnwick
