#include "ui/main/output_grid_editor.hpp"

#include "common/text.hpp"
#include "common/trap.hpp"
#include "ui/forms/keys.hpp"
#include "ui/main/output_rows.hpp"

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::string_view formName = "frmMain";

// Of the editors over their cell, in twips.
constexpr int inset = 45;
constexpr int folderButtonWidth = 350;
constexpr int besideFolderButton = 40;
constexpr int gridLine = 15;

} // namespace

OutputGridEditor::OutputGridEditor(const Parts& parts, std::string_view suffix, Desktop& desktop,
                                   Window window)
    : parts_(parts), suffix_(suffix), desktop_(desktop), window_(std::move(window)) {
    parts_.txtEdit.setLeavesKeysToGrid(true);
    parts_.txtEdit.passFocusTo(parts_.grid);
    parts_.cmdEdit.passFocusTo(parts_.grid);
    discard();
    connectEvents();
}

void OutputGridEditor::connectEvents() {
    const auto trapped = [this](std::string procedure, auto body) {
        return [this, procedure = std::move(procedure), body](auto... arguments) {
            trap(desktop_, formName, procedure, [&] { body(arguments...); });
        };
    };
    Grid& grid = parts_.grid;
    const std::string ofGrid = "Private Sub " + grid.name();
    const std::string ofEditor = "Private Sub " + parts_.txtEdit.name() + "_KeyDown";
    grid.Click = trapped(ofGrid + "_Click()", [this] { Click(); });
    grid.MouseDown = trapped(ofGrid + "_MouseDown", [this](int x, int y) { MouseDown(x, y); });
    // In reports this procedure of either grid goes by one name; that is kept.
    grid.KeyDown = trapped("Private Sub grdFiles_KeyDown", [this](int keyCode) {
        if (keyCode == Key::enter) {
            moveOn();
        } else if (keyCode == Key::f2) {
            pEditGrid(Key::blank);
        }
    });
    grid.KeyPress = trapped(ofGrid + "_KeyPress", [this](int character) { KeyPress(character); });
    grid.GotFocus = trapped(ofGrid + "_GotFocus()", window_.clearStatusAndCommit);
    grid.LeaveCell = trapped(ofGrid + "_LeaveCell()", window_.clearStatusAndCommit);
    grid.Scroll = grid.LeaveCell; // the editor would float over another cell
    parts_.txtEdit.KeyDown = trapped(ofEditor, [this](int keyCode) { editorKeyDown(keyCode); });
    parts_.cmdEdit.Click =
        trapped("Private Sub " + parts_.cmdEdit.name() + "_Click()", [this] { folderClick(); });
    parts_.cmdEdit.Escape = trapped(ofEditor, [this] { discard(); });
}

void OutputGridEditor::Click() {
    window_.clearStatusAndCommit();
    if (!bNoToggle_ && !bHeaderClick_) {
        toggleBuild();
    }
    bNoToggle_ = true;
    if (!bHeaderClick_) {
        pEditGrid(Key::blank);
    }
}

void OutputGridEditor::toggleBuild() {
    Grid& grid = parts_.grid;
    if (grid.row() >= grid.rows()) {
        return; // no rows of data
    }
    setToBuild(grid, grid.row(), !isToBuild(grid, grid.row()));
    window_.EnableOK();
    window_.settingsChanged();
}

void OutputGridEditor::MouseDown(int x, int y) {
    Grid& grid = parts_.grid;
    const int first = Grid::borderWidth + grid.columnWidth(buildColumn);
    const int second = first + grid.columnWidth(fileTypeColumn);
    if (grid.columnIsVisible(buildColumn) && x < first) {
        grid.setColumn(buildColumn);
        bNoToggle_ = false;
    }
    if (grid.columnIsVisible(fileTypeColumn) && x >= first && x < second) {
        grid.setColumn(fileTypeColumn);
        bNoToggle_ = true;
    }
    // Below the last row there is nothing to turn over or to edit either.
    bHeaderClick_ = y < Grid::borderWidth + grid.rowHeight() || !grid.cellAt(x, y);
}

void OutputGridEditor::KeyPress(int character) {
    if (parts_.grid.column() == buildColumn && character == Key::blank) {
        window_.clearStatusAndCommit();
        toggleBuild(); // as with any check box, for a user without a mouse
        return;
    }
    pEditGrid(character);
}

void OutputGridEditor::pEditGrid(int /*character*/) {
    trap(desktop_, formName, "Private Sub pEditGrid" + suffix_, [this] {
        Grid& grid = parts_.grid;
        if (!grid.isUsable() || grid.row() >= grid.rows() ||
            !isEditable(grid, grid.row(), grid.column())) {
            return;
        }
        grid.showCurrent(); // it may have been scrolled away
        placeEditors();
        TextBox& editor = parts_.txtEdit;
        editor.setAccessibleName(grid.text(0, grid.column()) + " of " +
                                 grid.text(grid.row(), fileTypeColumn));
        editor.setText(grid.text(grid.row(), grid.column()));
        editor.setVisible(true);
        editor.selectAll();
        editor.setFocus();
    });
}

void OutputGridEditor::placeEditors() {
    const Grid& grid = parts_.grid;
    const Bounds cell = grid.cellBounds();
    const int left = grid.bounds().left + cell.left;
    const int top = grid.bounds().top + cell.top;
    Bounds editor{.left = left + inset,
                  .top = top + inset,
                  .width = cell.width - inset,
                  .height = cell.height - inset};
    if (grid.column() == folderColumn) {
        parts_.cmdEdit.setBounds({.left = left + cell.width - folderButtonWidth,
                                  .top = top + gridLine,
                                  .width = folderButtonWidth,
                                  .height = cell.height - gridLine});
        parts_.cmdEdit.setAccessibleName("Choose the output folder of " +
                                         grid.text(grid.row(), fileTypeColumn));
        parts_.cmdEdit.setVisible(true);
        editor.width = cell.width - folderButtonWidth - besideFolderButton;
    }
    editor.width = std::max(0, editor.width);
    parts_.txtEdit.setBounds(editor);
}

void OutputGridEditor::pSetCellValue() {
    trap(desktop_, formName, "Private Sub pSetCellValue" + suffix_ + "()", [this] {
        Grid& grid = parts_.grid;
        const std::string& typed = parts_.txtEdit.text();
        if (!parts_.txtEdit.visible()) {
            return;
        }
        grid.setText(grid.row(), grid.column(),
                     grid.column() == folderColumn ? std::string(trim(typed))
                                                   : without(typed, '*'));
        discard();
        window_.settingsChanged();
    });
}

void OutputGridEditor::discard() {
    parts_.txtEdit.setVisible(false);
    parts_.cmdEdit.setVisible(false);
}

void OutputGridEditor::editorKeyDown(int keyCode) {
    const Grid& grid = parts_.grid;
    switch (keyCode) {
    case Key::enter:
        moveOn();
        break;
    case Key::escape:
        discard();
        break;
    case Key::up:
        if (grid.row() > 1) {
            editAt({.row = grid.row() - 1, .column = grid.column()});
        }
        break;
    case Key::down:
        if (grid.row() + 1 < grid.rows()) {
            editAt({.row = grid.row() + 1, .column = grid.column()});
        }
        break;
    default:
        break;
    }
}

// To the next cell that may be edited, row by row; on the last one it stays.
void OutputGridEditor::moveOn() {
    const Grid& grid = parts_.grid;
    Grid::Place place{.row = grid.row(), .column = grid.column()};
    if (place.column + 1 < grid.columns()) {
        ++place.column;
    } else if (place.row + 1 < grid.rows()) {
        place = {.row = place.row + 1, .column = extensionColumn};
    }
    editAt(place);
}

// Leaving the cell commits the edit; where the cell stays the same, nothing has left it.
void OutputGridEditor::editAt(Grid::Place place) {
    if (place == Grid::Place{.row = parts_.grid.row(), .column = parts_.grid.column()}) {
        pSetCellValue();
    }
    parts_.grid.setCurrent(place);
    pEditGrid(Key::blank);
}

void OutputGridEditor::folderClick() {
    Grid& grid = parts_.grid;
    const int row = grid.row();
    const std::string title = "Open " + grid.text(row, fileTypeColumn) + " Folder";
    const std::string folder = window_.pickFolder(title, grid.text(row, folderColumn));
    if (!folder.empty()) {
        parts_.txtEdit.setText(folder);
        grid.setText(row, folderColumn, folder);
        window_.settingsChanged();
    }
}

} // namespace tarnwick
