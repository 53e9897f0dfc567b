#pragma once

#include "ui/forms/grid.hpp"

#include <windows.h>

namespace tarnwick {

// What a screen reader is told of a grid in a window: a table whose children are its cells.

// The answer to its WM_GETOBJECT for the window's content.
[[nodiscard]] LRESULT giveAccessibleGrid(HWND window, WPARAM wParam);

// The number of the cell among the children.
[[nodiscard]] LONG accessibleChild(const Grid& grid, Grid::Place place) noexcept;

} // namespace tarnwick
