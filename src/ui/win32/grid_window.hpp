#pragma once

#include "ui/forms/grid.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/grid_painter.hpp"

#include <windows.h>

#include <string>

namespace tarnwick {

// A grid, in a window of a class of our own: "TarnwickGrid" in a dialog resource. It has the styles
// WS_BORDER and WS_TABSTOP.
class GridWindow final : public ControlWindow {
  public:
    // Makes the class known; to be called before a dialog with a grid is made, as often as you
    // like.
    static void registerClass() noexcept;

    // The grid that such a window shows; null before it is bound and after.
    [[nodiscard]] static const Grid* gridOf(HWND window) noexcept;

    GridWindow(Grid& grid, HWND window);
    GridWindow(const GridWindow&) = delete;
    GridWindow& operator=(const GridWindow&) = delete;
    ~GridWindow() override;

    void changed(Property property) override;
    [[nodiscard]] bool isFocusNotice(WORD code) const noexcept override;

  private:
    // What a screen reader says of a cell.
    struct Spoken {
        Grid::Place place; // in the header when there are no rows of data
        std::string name;
        bool ticked = false;
    };

    void fitResolution() override;
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept;
    [[nodiscard]] static bool handlesDrawing(HWND window, GridWindow* grid, UINT message,
                                             WPARAM wParam);
    void paint();
    void drawInto(HDC context, const RECT& area);
    // Whether it is something that the user did in the grid, which has answered it then.
    [[nodiscard]] bool takesInput(UINT message, WPARAM wParam, LPARAM lParam);
    void typed(wchar_t character);
    void pressed(LPARAM place);
    [[nodiscard]] int rowScrolledTo(WORD how) const noexcept;
    void showContents();
    void showScrollBar();
    [[nodiscard]] Spoken currentCell() const;
    // A screen reader is told where the focus is, or what has changed about that cell.
    void tellCurrentCell();
    void tellChangedCell();
    void tellScreenReader(DWORD event) const noexcept;

    Grid& grid_;
    GridPainter painter_;
    Spoken told_; // the cell of which a screen reader was last told
};

} // namespace tarnwick
