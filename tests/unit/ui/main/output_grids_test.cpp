// Both grids of output definitions: the same behaviour, tried on each.
#include "ui/main/output_rows.hpp"
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct GridCase {
    Grid frmMain::* grid;
    TextBox frmMain::* txtEdit;
    Button frmMain::* cmdEdit;
    int rows;
    const char* firstType;
    const char* lastType;

    friend std::ostream& operator<<(std::ostream& out, const GridCase& shown) {
        return out << (shown.grid == &frmMain::grdFiles ? "MP" : "CNS");
    }
};

class OutputGrids : public MainWorld, public testing::WithParamInterface<GridCase> {
  protected:
    OutputGrids() {
        form.show();
        form.userClicked(form.chkCNS);
        for (int row = 1; row <= rows; ++row) { // all on, each with texts of its own
            setToBuild(grid, row, true);
            grid.setText(row, extensionColumn, ".e" + std::to_string(row));
            grid.setText(row, folderColumn, "D:\\f" + std::to_string(row));
        }
        forgetChanges();
    }

    void expectEditing(int row, int column) {
        EXPECT_TRUE(txtEdit.visible());
        EXPECT_EQ(form.focused(), &txtEdit);
        EXPECT_EQ(grid.row(), row);
        EXPECT_EQ(grid.column(), column);
        EXPECT_EQ(txtEdit.text(), grid.text(row, column));
        EXPECT_EQ(txtEdit.selStart(), 0);
        EXPECT_EQ(txtEdit.selLength(), static_cast<int>(txtEdit.text().size()));
        EXPECT_EQ(cmdEdit.visible(), column == folderColumn);
    }
    void expectNotEditing() {
        EXPECT_FALSE(txtEdit.visible());
        EXPECT_FALSE(cmdEdit.visible());
    }
    void press(int keyCode) { txtEdit.userPressedKey(keyCode); }
    void expectLook(int row, bool on) {
        const Cell& box = grid.cell(row, buildColumn);
        EXPECT_EQ(box.text, on ? "\xFE" : "\xA8");
        EXPECT_EQ(box.fontName, "Wingdings");
        EXPECT_EQ(box.alignment, Alignment::Centre);
        EXPECT_EQ(box.fore, on ? Colour(Rgb{255, 0, 0}) : Colour(SystemColour::ButtonText));
        for (const int column : {extensionColumn, folderColumn}) {
            EXPECT_EQ(grid.cell(row, column).back,
                      Colour(on ? SystemColour::Window : SystemColour::ButtonFace));
        }
        EXPECT_EQ(grid.cell(row, fileTypeColumn).back, Colour(SystemColour::Window));
        EXPECT_EQ(isToBuild(grid, row), on);
    }

    Grid& grid = form.*GetParam().grid;
    TextBox& txtEdit = form.*GetParam().txtEdit;
    Button& cmdEdit = form.*GetParam().cmdEdit;
    int rows = GetParam().rows;
};

TEST_P(OutputGrids, The_heading_row_says_what_the_columns_are) {
    EXPECT_EQ(grid.rows(), rows + 1);
    EXPECT_EQ(grid.text(0, 0), "Build?");
    EXPECT_EQ(grid.text(0, 1), "File Type");
    EXPECT_EQ(grid.text(0, 2), "Extension");
    EXPECT_EQ(grid.text(0, 3), "Output Folder");
    EXPECT_EQ(grid.text(1, 1), GetParam().firstType);
    EXPECT_EQ(grid.text(rows, 1), GetParam().lastType);
}

TEST_P(OutputGrids, Two_clicks_on_a_box_bring_the_row_back_to_its_first_look) {
    for (int row = 1; row <= rows; ++row) {
        expectLook(row, true);
        click(grid, row, buildColumn);
        expectLook(row, false);
        EXPECT_EQ(grid.text(row, folderColumn), "D:\\f" + std::to_string(row));
        EXPECT_TRUE(changed());
        click(grid, row, buildColumn);
        expectLook(row, true);
        expectNotEditing();
    }
}

TEST_P(OutputGrids, A_press_belongs_to_the_column_that_it_is_seen_in_to_the_last_twip) {
    const int y = grid.cellBounds(1, buildColumn).top + 100;
    const int edge = grid.cellBounds(1, fileTypeColumn).left;
    grid.userClicked(edge - 1, y);
    expectLook(1, false);
    EXPECT_EQ(grid.column(), buildColumn);
    grid.userClicked(edge, y);
    expectLook(1, false);
    EXPECT_EQ(grid.column(), fileTypeColumn);
    grid.userClicked(grid.cellBounds(1, extensionColumn).left - 1, y);
    EXPECT_EQ(grid.column(), fileTypeColumn);
    grid.userClicked(100, grid.cellBounds(1, buildColumn).top - 1); // the header's last line
    expectLook(1, false);
    grid.userClicked(100, grid.cellBounds(1, buildColumn).top);
    expectLook(1, true);
}

TEST_P(OutputGrids, Only_a_press_on_a_box_turns_it_over) {
    click(grid, 1, fileTypeColumn);
    click(grid, 1, extensionColumn);
    click(grid, 2, folderColumn);
    EXPECT_FALSE(isToBuild(grid, 1) == false || isToBuild(grid, 2) == false);
    // A press on a box is used up by its click.
    click(grid, 1, buildColumn);
    click(grid, 1, extensionColumn);
    grid.Click();
    expectLook(1, false);
}

TEST_P(OutputGrids, The_header_and_the_space_below_the_rows_turn_nothing_over) {
    for (const int column : {buildColumn, fileTypeColumn, extensionColumn, folderColumn}) {
        click(grid, 0, column);
    }
    const Bounds last = grid.cellBounds(rows, extensionColumn);
    grid.userClicked(100, last.top + last.height + 5);
    grid.userClicked(last.left + 50, last.top + last.height + 5);
    for (int row = 1; row <= rows; ++row) {
        expectLook(row, true);
    }
    expectNotEditing();
    EXPECT_FALSE(changed());
}

TEST_P(OutputGrids, A_press_on_the_header_leaves_no_press_behind_for_the_next_cell) {
    click(grid, 0, buildColumn);
    click(grid, 1, extensionColumn);
    expectLook(1, true);
    expectEditing(1, extensionColumn);
}

TEST_P(OutputGrids, The_defaults_leave_no_press_behind_for_the_next_click) {
    const Bounds cell = grid.cellBounds(1, buildColumn);
    grid.MouseDown(cell.left + 10, cell.top + 10);
    desktop.chosenFiles = {R"(D:\new.ini)"};
    form.mnuNewINI.userClicked(); // which begins with the defaults
    EXPECT_THAT(desktop.messages, IsEmpty());
    const bool before = isToBuild(grid, 1);
    grid.setCurrent({.row = 1, .column = buildColumn});
    grid.Click();
    EXPECT_EQ(isToBuild(grid, 1), before);
}

TEST_P(OutputGrids, A_click_on_an_extension_opens_the_editor_over_the_cell) {
    click(grid, 2, extensionColumn);
    expectEditing(2, extensionColumn);
    const Bounds cell = grid.cellBounds(2, extensionColumn);
    const Bounds& at = grid.bounds();
    EXPECT_EQ(txtEdit.bounds(), (Bounds{.left = at.left + cell.left + 45,
                                        .top = at.top + cell.top + 45,
                                        .width = cell.width - 45,
                                        .height = cell.height - 45}));
    EXPECT_EQ(txtEdit.accessibleName(), "Extension of " + grid.text(2, fileTypeColumn));
    EXPECT_FALSE(changed());
}

TEST_P(OutputGrids, A_click_on_a_folder_opens_editor_and_button) {
    click(grid, 1, folderColumn);
    expectEditing(1, folderColumn);
    const Bounds cell = grid.cellBounds(1, folderColumn);
    const Bounds& at = grid.bounds();
    const Bounds& button = cmdEdit.bounds();
    EXPECT_EQ(button.width, 350);
    EXPECT_EQ(button.height, cell.height - 15);
    EXPECT_EQ(button.left + button.width, at.left + cell.left + cell.width);
    EXPECT_EQ(txtEdit.bounds(), (Bounds{.left = at.left + cell.left + 45,
                                        .top = at.top + cell.top + 45,
                                        .width = cell.width - 350 - 40,
                                        .height = cell.height - 45}));
    EXPECT_EQ(txtEdit.accessibleName(), std::string("Output Folder of ") + GetParam().firstType);
    EXPECT_EQ(cmdEdit.accessibleName(),
              std::string("Choose the output folder of ") + GetParam().firstType);
}

TEST_P(OutputGrids, On_an_unticked_row_and_on_a_type_no_editor_opens) {
    click(grid, 1, fileTypeColumn);
    expectNotEditing();
    click(grid, 1, buildColumn);
    for (const int column : {fileTypeColumn, extensionColumn, folderColumn}) {
        click(grid, 1, column);
        expectNotEditing();
        grid.userTyped('x');
        expectNotEditing();
    }
}

TEST_P(OutputGrids, Every_star_is_cut_out_of_an_extension) {
    click(grid, 1, extensionColumn);
    txtEdit.userTyped("*.*a*b**");
    leave();
    EXPECT_EQ(grid.text(1, extensionColumn), ".ab");
    expectNotEditing();
    EXPECT_TRUE(changed());
}

TEST_P(OutputGrids, A_folder_is_trimmed_and_keeps_its_stars) {
    click(grid, 1, folderColumn);
    txtEdit.userTyped("  D:\\a*b  ");
    leave();
    EXPECT_EQ(grid.text(1, folderColumn), "D:\\a*b");
    EXPECT_TRUE(changed());
}

TEST_P(OutputGrids, Escape_discards_the_edit_and_does_not_close_the_window) {
    for (const int column : {extensionColumn, folderColumn}) {
        click(grid, 1, column);
        const std::string before = grid.text(1, column);
        txtEdit.userTyped("other");
        form.userPressedEscape();
        EXPECT_EQ(grid.text(1, column), before);
        expectNotEditing();
        EXPECT_EQ(form.focused(), &grid);
        EXPECT_TRUE(form.visible());
        EXPECT_FALSE(changed());
    }
}

TEST_P(OutputGrids, Escape_on_the_folder_button_discards_the_edit_too) {
    click(grid, 1, folderColumn);
    txtEdit.userTyped("other");
    form.userMovedFocus(cmdEdit);
    form.userPressedEscape();
    expectNotEditing();
    EXPECT_EQ(grid.text(1, folderColumn), "D:\\f1");
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(form.focused(), &grid);
}

TEST_P(OutputGrids, Enter_in_the_editor_goes_on_cell_by_cell_and_keeps_every_text) {
    click(grid, 1, extensionColumn);
    for (int row = 1; row <= rows; ++row) {
        expectEditing(row, extensionColumn);
        txtEdit.userTyped(".n" + std::to_string(row));
        form.userPressedEnter();
        expectEditing(row, folderColumn);
        txtEdit.userTyped("E:\\" + std::to_string(row));
        form.userPressedEnter();
        EXPECT_EQ(grid.text(row, extensionColumn), ".n" + std::to_string(row));
        EXPECT_EQ(grid.text(row, folderColumn), "E:\\" + std::to_string(row));
    }
    // On the last row it stays where it is.
    expectEditing(rows, folderColumn);
    EXPECT_TRUE(interpreter.started.empty());
}

TEST_P(OutputGrids, Enter_in_the_folder_column_of_the_last_row_stays_on_that_row) {
    click(grid, rows, folderColumn);
    txtEdit.userTyped("E:\\last");
    for (int times = 0; times < 2; ++times) {
        form.userPressedEnter();
        expectEditing(rows, folderColumn);
        EXPECT_EQ(grid.text(rows, folderColumn), "E:\\last");
    }
}

TEST_P(OutputGrids, Enter_leads_over_rows_that_are_off_without_an_editor) {
    setToBuild(grid, 2, false);
    click(grid, 1, folderColumn);
    form.userPressedEnter();
    expectNotEditing();
    EXPECT_EQ(form.focused(), &grid);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.column(), extensionColumn);
}

TEST_P(OutputGrids, Up_and_Down_keep_the_text_and_edit_the_neighbour) {
    for (const int column : {extensionColumn, folderColumn}) {
        click(grid, 1, column);
        txtEdit.userTyped("first");
        press(Key::down);
        expectEditing(2, column);
        EXPECT_EQ(grid.text(1, column), "first");
        txtEdit.userTyped("second");
        press(Key::up);
        expectEditing(1, column);
        EXPECT_EQ(grid.text(2, column), "second");
    }
}

TEST_P(OutputGrids, Up_on_the_first_row_and_Down_on_the_last_do_nothing) {
    click(grid, 1, extensionColumn);
    txtEdit.userTyped("typing");
    press(Key::up);
    EXPECT_EQ(txtEdit.text(), "typing");
    EXPECT_EQ(grid.row(), 1);
    EXPECT_TRUE(txtEdit.visible());
    click(grid, rows, extensionColumn);
    txtEdit.userTyped("last");
    press(Key::down);
    EXPECT_EQ(txtEdit.text(), "last");
    EXPECT_EQ(grid.row(), rows);
}

TEST_P(OutputGrids, Other_keys_are_left_to_the_editor) {
    click(grid, 1, extensionColumn);
    txtEdit.userTyped("abc");
    for (const int key : {int{Key::left}, int{Key::right}, int{Key::home}, int{Key::end}, 65}) {
        press(key);
    }
    EXPECT_EQ(txtEdit.text(), "abc");
    EXPECT_TRUE(txtEdit.visible());
    EXPECT_EQ(grid.column(), extensionColumn);
}

TEST_P(OutputGrids, Enter_in_the_grid_goes_one_cell_on_and_edits_it) {
    click(grid, 1, buildColumn);
    click(grid, 1, buildColumn);
    form.userPressedEnter();
    EXPECT_EQ(grid.column(), fileTypeColumn);
    expectNotEditing();
    form.userPressedEnter();
    expectEditing(1, extensionColumn);
    EXPECT_TRUE(interpreter.started.empty());
}

TEST_P(OutputGrids, Any_character_opens_the_editor_with_the_cells_own_text) {
    for (const char character : {'x', ' ', '*', '\xE9'}) {
        click(grid, 1, extensionColumn);
        form.userPressedEscape();
        grid.userTyped(character);
        expectEditing(1, extensionColumn);
        EXPECT_EQ(txtEdit.text(), ".e1");
        form.userPressedEscape();
    }
}

TEST_P(OutputGrids, A_cell_that_was_scrolled_away_is_shown_again_to_be_edited) {
    // Two rows show, the heading among them.
    Bounds small = grid.bounds();
    small.height = 2 * grid.rowHeight() + 2 * Grid::borderWidth;
    grid.setBounds(small);
    form.userMovedFocus(grid);
    grid.setCurrent({.row = 1, .column = 2});
    grid.userScrolled(2);
    ASSERT_EQ(grid.topRow(), 2);
    grid.userTyped('x');
    EXPECT_EQ(grid.topRow(), 1);
    EXPECT_TRUE(txtEdit.visible());
    EXPECT_EQ(txtEdit.bounds().top, small.top + grid.cellBounds().top + 45);
}

TEST_P(OutputGrids, A_blank_on_a_box_turns_it_over_and_any_other_key_does_not) {
    click(grid, 1, fileTypeColumn);
    grid.userPressedKey(Key::left);
    grid.userTyped(' ');
    expectLook(1, false);
    EXPECT_TRUE(changed());
    grid.userTyped('x');
    expectLook(1, false);
    grid.userTyped(' ');
    expectLook(1, true);
    expectNotEditing();
}

TEST_P(OutputGrids, Arrow_keys_walk_through_the_grid) {
    click(grid, 1, fileTypeColumn);
    grid.userPressedKey(Key::down);
    EXPECT_EQ(grid.row(), 2);
    grid.userPressedKey(Key::right);
    EXPECT_EQ(grid.column(), extensionColumn);
    expectNotEditing();
    grid.userTyped('x');
    expectEditing(2, extensionColumn);
}

TEST_P(OutputGrids, The_folder_button_opens_the_picker_at_the_rows_folder) {
    click(grid, 1, folderColumn);
    txtEdit.userTyped("half typed");
    pickedFolders = {R"(D:\out)"};
    form.userClicked(cmdEdit);
    EXPECT_THAT(picks, ElementsAre(Pick{std::string("Open ") + GetParam().firstType + " Folder",
                                        R"(D:\f1)"}));
    EXPECT_EQ(txtEdit.text(), R"(D:\out)");
    EXPECT_EQ(grid.text(1, folderColumn), R"(D:\out)");
    EXPECT_TRUE(changed());
    leave();
    expectNotEditing();
    EXPECT_EQ(grid.text(1, folderColumn), R"(D:\out)");
}

TEST_P(OutputGrids, A_cancelled_picker_changes_nothing) {
    click(grid, 1, folderColumn);
    pickedFolders = {""};
    form.userClicked(cmdEdit);
    EXPECT_EQ(txtEdit.text(), R"(D:\f1)");
    EXPECT_EQ(grid.text(1, folderColumn), R"(D:\f1)");
    EXPECT_FALSE(changed());
}

TEST_P(OutputGrids, Wherever_the_focus_goes_the_edit_is_kept) {
    int number = 0;
    for (Control* const control : form.controls()) {
        if (!control->isFocusable() || !control->isUsable() || control == &form.txtEdit ||
            control == &form.cmdEdit || control == &form.txtEditCNS ||
            control == &form.cmdEditCNS) {
            continue;
        }
        click(grid, 1, extensionColumn);
        ASSERT_TRUE(txtEdit.visible()) << control->name();
        const std::string text = ".k" + std::to_string(++number);
        txtEdit.userTyped(text);
        form.StatusBar1.setPanelText(1, "Done!");
        form.userMovedFocus(*control);
        EXPECT_EQ(grid.text(1, extensionColumn), text) << control->name();
        EXPECT_EQ(form.StatusBar1.panelText(1), "") << control->name();
        expectNotEditing();
    }
    EXPECT_GT(number, 15);
}

TEST_P(OutputGrids, A_box_that_is_neither_glyph_is_off) {
    for (const char* const text : {"", "x", "1", "\xFE "}) {
        grid.setText(1, buildColumn, text);
        EXPECT_FALSE(outputOf(grid, 1).bBuild) << text;
    }
}

INSTANTIATE_TEST_SUITE_P(Both, OutputGrids,
                         testing::Values(GridCase{&frmMain::grdFiles, &frmMain::txtEdit,
                                                  &frmMain::cmdEdit, 7, "Error", "Dif"},
                                         GridCase{&frmMain::grdCNS, &frmMain::txtEditCNS,
                                                  &frmMain::cmdEditCNS, 2, "Info_file",
                                                  "Leftovers"}),
                         testing::PrintToStringParamName());

struct AllFolders : MainWorld {
    AllFolders() { form.show(); }
};

TEST_F(AllFolders, One_folder_goes_to_every_row_of_MP_ticked_or_not) {
    pickedFolders = {R"(D:\out)"};
    form.userClicked(form.cmdOutputFolder);
    for (int row = 1; row <= 7; ++row) {
        EXPECT_EQ(form.grdFiles.text(row, folderColumn), R"(D:\out)");
    }
    EXPECT_EQ(form.grdCNS.text(1, folderColumn), "");
    EXPECT_TRUE(changed());
    EXPECT_EQ(picks.front().title, "Open Folder");
}

TEST_F(AllFolders, A_cancelled_picker_leaves_the_rows_alone) {
    pickedFolders = {""};
    form.userClicked(form.cmdOutputFolder);
    EXPECT_EQ(form.grdFiles.text(1, folderColumn), "");
    EXPECT_FALSE(changed());
}

TEST_F(AllFolders, After_the_defaults_only_Error_and_Xml_are_built) {
    for (int row = 1; row <= 7; ++row) {
        EXPECT_EQ(isToBuild(form.grdFiles, row), row == 1 || row == 6);
    }
    EXPECT_FALSE(isToBuild(form.grdCNS, 1) || isToBuild(form.grdCNS, 2));
}

} // namespace
} // namespace tarnwick
