#include "platform/run_time_error.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/grid.hpp"
#include "ui/forms/keys.hpp"
#include "ui/forms/text_box.hpp"
#include "unit/ui/forms/recording_view.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Place = Grid::Place;

constexpr int rowHeight = 300;

struct Table : Form {
    Table() : Form("frmTable", "Table") {}
    TextBox txtBefore{*this, "txtBefore"};
    Grid grd{*this, "grd"};
    TextBox txtEdit{*this, "txtEdit"};
};

struct Grids : testing::Test {
    Table form;
    Grid& grd = form.grd;
    RecordingView view;
    std::vector<std::string> events;

    void SetUp() override {
        grd.setRows(4);
        grd.setBounds({.left = 100, .top = 200, .width = 3000, .height = 4 * rowHeight + 30});
        grd.setRowHeight(rowHeight);
        for (const int column : {0, 1, 2, 3}) {
            grd.setColumnWidth(column, 500 + column * 100);
        }
        grd.Click = [this] { note("Click"); };
        grd.MouseDown = [this](int x, int y) {
            note("MouseDown " + std::to_string(x) + ' ' + std::to_string(y));
        };
        grd.KeyDown = [this](int code) { note("KeyDown " + std::to_string(code)); };
        grd.KeyPress = [this](int code) { note("KeyPress " + std::to_string(code)); };
        grd.LeaveCell = [this] { note("LeaveCell"); };
        grd.GotFocus = [this] { note("GotFocus"); };
        grd.Scroll = [this] { note("Scroll"); };
        form.show();
        grd.setFocus();
        grd.attach(view);
    }
    void TearDown() override { grd.detach(); }

    // With the cell that is current while it happens.
    void note(const std::string& event) {
        events.push_back(event + " at " + std::to_string(grd.row()) + ',' +
                         std::to_string(grd.column()));
    }
};

TEST_F(Grids, A_new_grid_has_a_header_and_no_row_of_data) {
    Form other("frmOther", "");
    const Grid grid(other, "grd", 3);
    EXPECT_EQ(grid.rows(), 1);
    EXPECT_EQ(grid.columns(), 3);
    EXPECT_EQ(grid.row(), 1);
    EXPECT_EQ(grid.column(), 0);
}

TEST_F(Grids, A_cell_keeps_its_text_font_alignment_and_colours) {
    const Cell cell{.text = "x",
                    .fontName = symbolFont,
                    .alignment = Alignment::Centre,
                    .fore = Rgb{.red = 255},
                    .back = SystemColour::ButtonFace};
    grd.setCell(2, 0, cell);
    grd.setCell(2, 0, cell);
    grd.setText(2, 1, "Text");
    grd.setBack(2, 1, SystemColour::ButtonFace);
    EXPECT_EQ(grd.cell(2, 0), cell);
    EXPECT_EQ(grd.text(2, 1), "Text");
    EXPECT_EQ(grd.cell(2, 1).back, Colour(SystemColour::ButtonFace));
    EXPECT_THAT(view.told, ElementsAre(Property::Cells, Property::Cells, Property::Cells));
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Grids, Rows_and_columns_that_are_not_there_raise_51) {
    const auto expect51 = [](const auto& act) {
        try {
            act();
            ADD_FAILURE() << "nothing raised";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.record().number, 51);
        }
    };
    expect51([&] { (void)grd.cell(4, 0); });
    expect51([&] { (void)grd.cell(-1, 0); });
    expect51([&] { grd.setText(0, 4, ""); });
    expect51([&] { grd.setCurrent({.row = 0, .column = 0}); });
    expect51([&] { grd.setColumn(4); });
    expect51([&] { grd.setRows(0); });
    EXPECT_EQ(grd.row(), 1);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Grids, Leaving_a_cell_is_told_while_it_is_still_the_current_one) {
    grd.setColumn(2);
    grd.setCurrent({.row = 3, .column = 2});
    grd.setCurrent({.row = 3, .column = 2});
    EXPECT_THAT(events, ElementsAre("LeaveCell at 1,0", "LeaveCell at 1,2"));
    EXPECT_EQ(grd.row(), 3);
    EXPECT_THAT(view.told, ElementsAre(Property::Selection, Property::Selection));
}

TEST_F(Grids, A_move_of_row_and_column_leaves_one_cell) {
    grd.setCurrent({.row = 2, .column = 3});
    EXPECT_THAT(events, ElementsAre("LeaveCell at 1,0"));
}

TEST_F(Grids, A_LeaveCell_handler_that_moves_on_does_not_start_itself) {
    grd.LeaveCell = [this] {
        note("LeaveCell");
        grd.setCurrent({.row = 3, .column = 3});
    };
    grd.setCurrent({.row = 2, .column = 0});
    EXPECT_THAT(events, ElementsAre("LeaveCell at 1,0"));
    EXPECT_EQ(grd.row(), 2);
}

TEST_F(Grids, A_LeaveCell_handler_that_fails_keeps_the_cell_and_is_called_again) {
    grd.LeaveCell = [] { throw std::string("broken"); };
    EXPECT_THROW(grd.setCurrent({.row = 2, .column = 0}), std::string);
    EXPECT_EQ(grd.row(), 1);
    EXPECT_THROW(grd.setCurrent({.row = 2, .column = 0}), std::string);
}

TEST_F(Grids, Fewer_rows_keep_the_current_cell_where_it_can_be) {
    grd.setCurrent({.row = 3, .column = 0});
    events.clear();
    grd.setRows(2);
    EXPECT_EQ(grd.row(), 1);
    grd.setRows(1);
    EXPECT_EQ(grd.row(), 1);
    grd.setRows(3);
    EXPECT_EQ(grd.text(2, 0), "");
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Grids, Cells_lie_side_by_side_inside_the_border) {
    EXPECT_EQ(grd.cellBounds(0, 0),
              (Bounds{.left = 15, .top = 15, .width = 500, .height = rowHeight}));
    EXPECT_EQ(grd.cellBounds(2, 3),
              (Bounds{.left = 1815, .top = 615, .width = 800, .height = rowHeight}));
    grd.setCurrent({.row = 1, .column = 1});
    EXPECT_EQ(grd.cellBounds(), (Bounds{.left = 515, .top = 315, .width = 600, .height = 300}));
}

TEST_F(Grids, The_cell_at_a_place_is_found) {
    EXPECT_EQ(grd.cellAt(15, 15), (Place{.row = 0, .column = 0}));
    EXPECT_EQ(grd.cellAt(514, 315), (Place{.row = 1, .column = 0}));
    EXPECT_EQ(grd.cellAt(515, 314), (Place{.row = 0, .column = 1}));
    EXPECT_EQ(grd.cellAt(2614, 1214), (Place{.row = 3, .column = 3}));
    EXPECT_EQ(grd.cellAt(2615, 400), std::nullopt);
    EXPECT_EQ(grd.cellAt(400, 1215), std::nullopt);
    EXPECT_EQ(grd.cellAt(14, 400), std::nullopt);
    EXPECT_EQ(grd.cellAt(400, 14), std::nullopt);
}

TEST_F(Grids, A_column_is_visible_while_some_of_it_lies_within_the_grid) {
    EXPECT_TRUE(grd.columnIsVisible(3));
    grd.setColumnWidth(2, 2000);
    EXPECT_FALSE(grd.columnIsVisible(3));
    grd.setColumnWidth(1, 0);
    EXPECT_FALSE(grd.columnIsVisible(1));
}

TEST_F(Grids, A_press_makes_its_cell_the_current_one_before_it_is_told) {
    grd.userPressed(600, 700);
    EXPECT_THAT(events, ElementsAre("LeaveCell at 1,0", "MouseDown 600 700 at 2,1"));
    grd.userReleased();
    grd.userReleased();
    EXPECT_EQ(events.size(), 3U);
    EXPECT_EQ(events.back(), "Click at 2,1");
}

TEST_F(Grids, A_press_on_the_header_or_beside_the_cells_leaves_the_current_cell) {
    grd.userClicked(600, 20);
    grd.userClicked(2900, 400);
    EXPECT_THAT(events, ElementsAre("MouseDown 600 20 at 1,0", "Click at 1,0",
                                    "MouseDown 2900 400 at 1,0", "Click at 1,0"));
}

TEST_F(Grids, A_press_brings_the_focus_first) {
    form.txtBefore.setFocus();
    grd.userPressed(20, 320);
    EXPECT_THAT(events, ElementsAre("GotFocus at 1,0", "MouseDown 20 320 at 1,0"));
}

TEST_F(Grids, A_field_that_keeps_the_focus_swallows_the_click) {
    form.txtBefore.setFocus();
    form.txtBefore.LostFocus = [this] { form.txtBefore.setFocus(); };
    grd.userClicked(600, 700);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(grd.row(), 1);
}

TEST_F(Grids, A_grid_that_is_disabled_by_the_press_is_not_clicked) {
    grd.MouseDown = [this](int, int) { grd.setEnabled(false); };
    grd.userClicked(20, 320);
    grd.userTyped('a');
    grd.userPressedKey(Key::down);
    grd.userClicked(600, 700);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(grd.row(), 1);
}

TEST_F(Grids, Characters_are_told_but_for_those_of_control_keys) {
    for (const char typed : {'a', ' ', '\xE9', '\r', '\x1B', '\b', '\x7F'}) {
        grd.userTyped(typed);
    }
    EXPECT_THAT(events,
                ElementsAre("KeyPress 97 at 1,0", "KeyPress 32 at 1,0", "KeyPress 233 at 1,0"));
}

TEST_F(Grids, The_arrow_keys_move_the_current_cell_after_they_are_told) {
    grd.userPressedKey(Key::down);
    grd.userPressedKey(Key::right);
    EXPECT_THAT(events, ElementsAre("KeyDown 40 at 1,0", "LeaveCell at 1,0", "KeyDown 39 at 2,0",
                                    "LeaveCell at 2,0"));
    EXPECT_EQ(grd.row(), 2);
    EXPECT_EQ(grd.column(), 1);
}

TEST_F(Grids, Keys_stop_at_the_edges) {
    const auto press = [this](int code) {
        grd.userPressedKey(code);
        return Place{.row = grd.row(), .column = grd.column()};
    };
    EXPECT_EQ(press(Key::up), (Place{.row = 1, .column = 0}));
    EXPECT_EQ(press(Key::left), (Place{.row = 1, .column = 0}));
    EXPECT_EQ(press(Key::end), (Place{.row = 1, .column = 3}));
    EXPECT_EQ(press(Key::right), (Place{.row = 1, .column = 3}));
    EXPECT_EQ(press(Key::pageDown), (Place{.row = 3, .column = 3}));
    EXPECT_EQ(press(Key::down), (Place{.row = 3, .column = 3}));
    EXPECT_EQ(press(Key::home), (Place{.row = 3, .column = 0}));
    EXPECT_EQ(press(Key::pageUp), (Place{.row = 1, .column = 0}));
}

TEST_F(Grids, A_key_that_takes_the_focus_elsewhere_does_not_move_the_cell) {
    grd.KeyDown = [this](int) { form.txtEdit.setFocus(); };
    grd.userPressedKey(Key::down);
    EXPECT_EQ(grd.row(), 1);
}

TEST_F(Grids, A_grid_without_data_stays_where_it_is) {
    grd.setRows(1);
    grd.userPressedKey(Key::down);
    grd.userClicked(600, 700);
    EXPECT_EQ(grd.row(), 1);
    EXPECT_EQ(grd.column(), 0);
}

TEST_F(Grids, Enter_goes_to_the_grid_and_not_to_the_default_button) {
    form.userPressedEnter();
    EXPECT_THAT(events, ElementsAre("KeyDown 13 at 1,0"));
    EXPECT_FALSE(grd.wantsKey(Key::escape));
}

TEST_F(Grids, The_current_cell_is_scrolled_into_sight) {
    grd.setRows(11); // three of ten fit
    EXPECT_EQ(grd.pageRows(), 3);
    grd.setCurrent({.row = 5, .column = 0});
    EXPECT_EQ(grd.topRow(), 3);
    EXPECT_TRUE(grd.rowIsVisible(0));
    EXPECT_FALSE(grd.rowIsVisible(2));
    EXPECT_TRUE(grd.rowIsVisible(5));
    EXPECT_FALSE(grd.rowIsVisible(6));
    EXPECT_EQ(grd.cellBounds(3, 0).top, 315);
    EXPECT_EQ(grd.cellAt(20, 320), (Place{.row = 3, .column = 0}));
    grd.setCurrent({.row = 1, .column = 0});
    EXPECT_EQ(grd.topRow(), 1);
}

TEST_F(Grids, Scrolling_ends_at_the_last_page_and_tells_when_rows_moved) {
    grd.setRows(11);
    grd.userScrolled(99);
    EXPECT_EQ(grd.topRow(), 8);
    grd.userScrolled(99);
    EXPECT_THAT(events, ElementsAre("Scroll at 1,0"));
    grd.setRows(4);
    EXPECT_EQ(grd.topRow(), 1);
}

TEST_F(Grids, The_wheel_scrolls_a_row_for_each_notch_and_adds_up_what_is_less) {
    grd.setRows(11);
    grd.userTurnedWheel(-120);
    EXPECT_EQ(grd.topRow(), 2);
    grd.userTurnedWheel(-360);
    EXPECT_EQ(grd.topRow(), 5);
    for (const int delta : {40, 40, 40}) {
        grd.userTurnedWheel(delta);
    }
    EXPECT_EQ(grd.topRow(), 4);
    grd.userTurnedWheel(-70);
    grd.userTurnedWheel(30);
    grd.userTurnedWheel(-70);
    EXPECT_EQ(grd.topRow(), 4);
    grd.userTurnedWheel(-10);
    EXPECT_EQ(grd.topRow(), 5);
}

TEST_F(Grids, A_screen_reader_hears_the_header_and_the_value) {
    grd.setText(0, 0, "Build?");
    grd.setText(0, 3, "Output folder");
    grd.setCell(1, 0, {.text = tickedGlyph, .fontName = symbolFont});
    grd.setCell(2, 0, {.text = emptyGlyph, .fontName = symbolFont});
    grd.setText(1, 3, "C:\\out");
    EXPECT_EQ(grd.accessibleText(1, 0), "Build?: ticked");
    EXPECT_EQ(grd.accessibleText(2, 0), "Build?: not ticked");
    EXPECT_EQ(grd.accessibleText(1, 3), "Output folder: C:\\out");
    EXPECT_EQ(grd.accessibleText(2, 3), "Output folder: empty");
    EXPECT_EQ(grd.accessibleText(0, 3), "Output folder");
    EXPECT_EQ(grd.accessibleText(2, 1), "empty");
    grd.setTitleColumn(1);
    grd.setText(1, 1, "Html");
    EXPECT_EQ(grd.accessibleText(1, 0), "Html, Build?: ticked");
    EXPECT_EQ(grd.accessibleText(1, 1), "Html");
}

TEST_F(Grids, A_glyph_is_a_box_only_in_the_symbol_font) {
    EXPECT_TRUE((Cell{.text = tickedGlyph, .fontName = symbolFont}.showsTick()));
    EXPECT_TRUE((Cell{.text = emptyGlyph, .fontName = symbolFont}.showsBox()));
    EXPECT_FALSE((Cell{.text = emptyGlyph, .fontName = symbolFont}.showsTick()));
    EXPECT_FALSE((Cell{.text = tickedGlyph, .fontName = ""}.showsBox()));
    EXPECT_FALSE((Cell{.text = "x", .fontName = symbolFont}.showsBox()));
}

} // namespace
} // namespace tarnwick
