#pragma once

#include "platform/desktop.hpp"
#include "ui/forms/button.hpp"
#include "ui/forms/grid.hpp"
#include "ui/forms/text_box.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace tarnwick {

// How the user ticks and edits the rows of one output definition grid: boxes by click or blank,
// extensions and folders in a text box that floats over the cell, folders also by a button beside
// it that opens the folder picker. It connects itself to the events of its parts.
class OutputGridEditor {
  public:
    // They must outlive it. The two editors come right before the grid in the order of the focus.
    struct Parts {
        Grid& grid;
        TextBox& txtEdit;
        Button& cmdEdit;
    };
    // What it asks of its window.
    struct Window {
        std::function<void()> clearStatusAndCommit; // at the beginning of nearly every event
        std::function<void()> settingsChanged;      // something was edited
        std::function<void()> EnableOK;
        std::function<std::string(std::string_view title, std::string_view startFolder)> pickFolder;
    };

    // The grid's own procedures bear its suffix in reports: "pEditGrid" or "pEditGridCNS".
    OutputGridEditor(const Parts& parts, std::string_view suffix, Desktop& desktop, Window window);

    // Opens the editor over the current cell where that can be edited. Which character opened it
    // makes no difference.
    void pEditGrid(int character);
    // Writes what is in the editor into its cell and closes it; nothing when it is not open.
    void pSetCellValue();
    // Closes the editor and forgets what is in it.
    void discard();
    // From now on only a fresh press on a box turns that over.
    void forgetPress() noexcept { bNoToggle_ = true; }

  private:
    void connectEvents();
    void Click();
    void MouseDown(int x, int y);
    void KeyPress(int character);
    void editorKeyDown(int keyCode);
    void folderClick();

    void toggleBuild();
    void moveOn();
    void editAt(Grid::Place place);
    void placeEditors();

    Parts parts_;
    std::string suffix_;
    Desktop& desktop_;
    Window window_;
    bool bNoToggle_ = true;     // the next click turns no box over
    bool bHeaderClick_ = false; // the last press was on no row of data
};

} // namespace tarnwick
