#pragma once

#include "ui/forms/cell.hpp"
#include "ui/forms/control.hpp"
#include "ui/forms/keys.hpp"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// A table. Row 0 is its fixed header; the rows of data begin at 1, and columns at 0. One cell is
// the current one: it shows the focus. Whatever names a row or column that is not there raises 51.
class Grid final : public Control {
  public:
    struct Place {
        int row = 0;
        int column = 0;

        bool operator==(const Place&) const = default;
    };

    // Around the cells, inside the control's bounds.
    static constexpr int borderWidth = 15;
    static constexpr int wheelNotch = 120;

    // With its header, and no rows of data.
    Grid(Form& form, std::string_view name, int columns = 4);

    // With the header.
    [[nodiscard]] int rows() const noexcept { return static_cast<int>(rows_.size()); }
    [[nodiscard]] int columns() const noexcept { return static_cast<int>(widths_.size()); }
    // At least 1. New rows come at the end and are blank; the current cell stays where it can.
    void setRows(int rows);

    [[nodiscard]] const Cell& cell(int row, int column) const;
    void setCell(int row, int column, Cell cell);
    [[nodiscard]] const std::string& text(int row, int column) const {
        return cell(row, column).text;
    }
    void setText(int row, int column, std::string_view text);
    void setBack(int row, int column, Colour back);

    [[nodiscard]] int columnWidth(int column) const;
    void setColumnWidth(int column, int twips);
    // The same for all rows.
    [[nodiscard]] int rowHeight() const noexcept { return rowHeight_; }
    void setRowHeight(int twips) { set(rowHeight_, twips, Property::Cells); }

    [[nodiscard]] int row() const noexcept { return current_.row; }
    [[nodiscard]] int column() const noexcept { return current_.column; }
    // Whether code or the user changes the current cell, LeaveCell fires first, while the old one
    // is still current; once when row and column change together.
    void setColumn(int column) { setCurrent({.row = current_.row, .column = column}); }
    void setCurrent(Place place);

    // The first row of data that shows. A cell that becomes the current one is scrolled into sight;
    // the user may scroll it away again.
    [[nodiscard]] int topRow() const noexcept { return topRow_; }
    // Scrolls it into sight; fires nothing.
    void showCurrent();
    // How many rows of data show in full; at least 1.
    [[nodiscard]] int pageRows() const noexcept;
    [[nodiscard]] bool rowIsVisible(int row) const;
    [[nodiscard]] bool columnIsVisible(int column) const;
    // Within the control's bounds, from their upper left corner; outside of them for a cell that
    // does not show.
    [[nodiscard]] Bounds cellBounds(int row, int column) const;
    [[nodiscard]] Bounds cellBounds() const { return cellBounds(row(), column()); }
    // The cell at that place within the control's bounds.
    [[nodiscard]] std::optional<Place> cellAt(int x, int y) const;
    // The column whose text tells one row from another, for a screen reader; none to begin with.
    void setTitleColumn(int column);
    // What a screen reader says of the cell: the row's title, the column's header and the text.
    [[nodiscard]] std::string accessibleText(int row, int column) const;

    // A mouse button went down at that place within the control's bounds: the focus comes, the cell
    // of data that is there becomes the current one, and MouseDown fires.
    void userPressed(int x, int y);
    // It went up again, anywhere: fires Click when the press had not been lost.
    void userReleased();
    // Both.
    void userClicked(int x, int y);
    // Fires KeyPress, but for the characters of control keys.
    void userTyped(char character);
    // Fires KeyDown; then the keys that move, move the current cell.
    void userPressedKey(int keyCode) override;
    void userScrolled(int topRow);
    // The mouse wheel was turned away from the user by so much: `wheelNotch` is one row up. What is
    // less is kept, for wheels that turn smoothly.
    void userTurnedWheel(int delta);

    [[nodiscard]] bool wantsKey(int keyCode) const override {
        return keyCode == Key::enter && KeyDown;
    }

    std::function<void()> Click;
    std::function<void(int x, int y)> MouseDown;
    std::function<void(int keyCode)> KeyDown;
    std::function<void(int character)> KeyPress;
    std::function<void()> LeaveCell;
    std::function<void()> Scroll; // other rows show now

  private:
    void check(int row, int column) const;
    [[nodiscard]] Place placeAfter(int keyCode) const noexcept;
    [[nodiscard]] int lastTopRow() const noexcept { return std::max(1, rows() - pageRows()); }
    void scrollTo(int topRow);

    std::vector<std::vector<Cell>> rows_;
    std::vector<int> widths_;
    std::optional<int> titleColumn_;
    int rowHeight_ = 285;
    Place current_{.row = 1, .column = 0};
    int topRow_ = 1;
    int turned_ = 0; // of the wheel, less than a notch
    bool leaving_ = false;
    bool pressed_ = false;
};

} // namespace tarnwick
