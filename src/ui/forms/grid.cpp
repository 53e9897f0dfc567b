#include "ui/forms/grid.hpp"

#include "common/scoped_flag.hpp"
#include "platform/run_time_error.hpp"
#include "ui/forms/form.hpp"

#include <cstddef>
#include <numeric>
#include <utility>

namespace tarnwick {
namespace {

constexpr int defaultColumnWidth = 960;

std::size_t at(int index) noexcept {
    return static_cast<std::size_t>(index);
}

} // namespace

Grid::Grid(Form& form, std::string_view name, int columns)
    : Control(form, name),
      rows_(1, std::vector<Cell>(at(columns))),
      widths_(at(columns), defaultColumnWidth) {}

void Grid::check(int row, int column) const {
    if (row < 0 || row >= rows() || column < 0 || column >= columns()) {
        throw RunTimeError(ErrorNumber::InternalError);
    }
}

void Grid::setRows(int rows) {
    if (rows < 1) {
        throw RunTimeError(ErrorNumber::InternalError);
    }
    if (rows != this->rows()) {
        rows_.resize(at(rows), std::vector<Cell>(widths_.size()));
        current_.row = std::clamp(current_.row, 1, std::max(1, rows - 1));
        topRow_ = std::min(topRow_, lastTopRow());
        tellView(Property::Cells);
    }
}

const Cell& Grid::cell(int row, int column) const {
    check(row, column);
    return rows_[at(row)][at(column)];
}

void Grid::setCell(int row, int column, Cell cell) {
    check(row, column);
    set(rows_[at(row)][at(column)], std::move(cell), Property::Cells);
}

void Grid::setText(int row, int column, std::string_view text) {
    check(row, column);
    set(rows_[at(row)][at(column)].text, text, Property::Cells);
}

void Grid::setBack(int row, int column, Colour back) {
    check(row, column);
    set(rows_[at(row)][at(column)].back, back, Property::Cells);
}

int Grid::columnWidth(int column) const {
    check(0, column);
    return widths_[at(column)];
}

void Grid::setColumnWidth(int column, int twips) {
    check(0, column);
    set(widths_[at(column)], twips, Property::Cells);
}

void Grid::setCurrent(Place place) {
    check(place.row, place.column);
    if (place.row < 1) {
        throw RunTimeError(ErrorNumber::InternalError);
    }
    if (place == current_) {
        return;
    }
    if (!leaving_) { // else a handler of LeaveCell has called this
        const ScopedFlag leaving(leaving_);
        fire(LeaveCell);
    }
    current_ = place;
    showCurrent();
    tellView(Property::Selection);
}

int Grid::pageRows() const noexcept {
    const int room = bounds().height - 2 * borderWidth - rowHeight_;
    return std::max(1, rowHeight_ > 0 ? room / rowHeight_ : 1);
}

void Grid::scrollTo(int topRow) {
    const int wanted = std::clamp(topRow, 1, lastTopRow());
    if (wanted != topRow_) {
        topRow_ = wanted;
        tellView(Property::Cells);
    }
}

void Grid::showCurrent() {
    if (current_.row < topRow_) {
        scrollTo(current_.row);
    } else if (current_.row >= topRow_ + pageRows()) {
        scrollTo(current_.row - pageRows() + 1);
    }
}

bool Grid::rowIsVisible(int row) const {
    check(row, 0);
    return row == 0 || (row >= topRow_ && row < topRow_ + pageRows());
}

bool Grid::columnIsVisible(int column) const {
    const Bounds cell = cellBounds(0, column);
    return cell.width > 0 && cell.left < bounds().width - borderWidth;
}

Bounds Grid::cellBounds(int row, int column) const {
    check(row, column);
    const int left = std::accumulate(widths_.begin(), widths_.begin() + column, borderWidth);
    const int above = row == 0 ? 0 : row - topRow_ + 1;
    return {.left = left,
            .top = borderWidth + above * rowHeight_,
            .width = widths_[at(column)],
            .height = rowHeight_};
}

std::optional<Grid::Place> Grid::cellAt(int x, int y) const {
    const int fromHeader = y - borderWidth;
    if (x < borderWidth || fromHeader < 0 || rowHeight_ <= 0) {
        return std::nullopt;
    }
    const int shown = fromHeader / rowHeight_;
    const int row = shown == 0 ? 0 : topRow_ + shown - 1;
    int right = borderWidth;
    for (int column = 0; row < rows() && column < columns(); ++column) {
        right += widths_[at(column)];
        if (x < right) {
            return Place{.row = row, .column = column};
        }
    }
    return std::nullopt;
}

void Grid::setTitleColumn(int column) {
    check(0, column);
    titleColumn_ = column;
}

std::string Grid::accessibleText(int row, int column) const {
    const Cell& shown = cell(row, column);
    if (row == 0) {
        return shown.text;
    }
    std::string value = shown.text.empty() ? "empty" : shown.text;
    if (shown.showsBox()) {
        value = shown.showsTick() ? "ticked" : "not ticked";
    }
    const std::string& header = text(0, column);
    const bool titled = titleColumn_ && *titleColumn_ != column;
    return (titled ? text(row, *titleColumn_) + ", " : "") + (header.empty() ? "" : header + ": ") +
           value;
}

void Grid::userPressed(int x, int y) {
    pressed_ = userBroughtFocus();
    if (!pressed_) {
        return;
    }
    if (const auto place = cellAt(x, y); place && place->row >= 1) {
        setCurrent(*place);
    }
    fire(MouseDown, x, y);
}

void Grid::userReleased() {
    if (std::exchange(pressed_, false) && isUsable()) {
        fire(Click);
    }
}

void Grid::userClicked(int x, int y) {
    userPressed(x, y);
    userReleased();
}

void Grid::userTyped(char character) {
    constexpr int rubout = 127;
    const int code = static_cast<unsigned char>(character);
    if (isUsable() && code >= Key::blank && code != rubout) {
        fire(KeyPress, code);
    }
}

void Grid::userPressedKey(int keyCode) {
    if (!isUsable()) {
        return;
    }
    fire(KeyDown, keyCode);
    if (isUsable() && form().focused() == this && rows() > 1) {
        setCurrent(placeAfter(keyCode));
    }
}

Grid::Place Grid::placeAfter(int keyCode) const noexcept {
    const auto nearest = [this](int row, int column) {
        return Place{.row = std::clamp(row, 1, std::max(1, rows() - 1)),
                     .column = std::clamp(column, 0, columns() - 1)};
    };
    switch (keyCode) {
    case Key::up:
        return nearest(row() - 1, column());
    case Key::down:
        return nearest(row() + 1, column());
    case Key::left:
        return nearest(row(), column() - 1);
    case Key::right:
        return nearest(row(), column() + 1);
    case Key::home:
        return nearest(row(), 0);
    case Key::end:
        return nearest(row(), columns() - 1);
    case Key::pageUp:
        return nearest(row() - pageRows(), column());
    case Key::pageDown:
        return nearest(row() + pageRows(), column());
    default:
        return nearest(row(), column());
    }
}

void Grid::userScrolled(int topRow) {
    const int before = topRow_;
    scrollTo(topRow);
    if (topRow_ != before) {
        fire(Scroll);
    }
}

void Grid::userTurnedWheel(int delta) {
    turned_ += delta;
    const int notches = turned_ / wheelNotch;
    turned_ -= notches * wheelNotch;
    userScrolled(topRow_ - notches);
}

} // namespace tarnwick
