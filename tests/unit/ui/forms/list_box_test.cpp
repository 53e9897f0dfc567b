#include "ui/forms/form.hpp"
#include "ui/forms/list_box.hpp"
#include "unit/ui/forms/recording_view.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Lists : Form {
    Lists() : Form("frmLists", "Lists") {}
    Button cmdOther{*this, "cmdOther", "Other"};
    ListBox lstFiles{*this, "lstFiles"};
    ListBox lstOther{*this, "lstOther"};
};

struct ListBoxes : testing::Test {
    Lists form;
    ListBox& list = form.lstFiles;
    RecordingView view;
    std::vector<std::string> events;

    void SetUp() override {
        list.Click = [this] { events.emplace_back("Click"); };
        list.DblClick = [this] { events.emplace_back("DblClick"); };
        list.GotFocus = [this] { events.emplace_back("GotFocus"); };
        list.Remeasured = [this] { events.emplace_back("Remeasured"); };
        form.show();
        list.setItems({"c", "A", "b"});
        list.attach(view);
    }
    void TearDown() override { list.detach(); }

    void userSelects(const std::vector<int>& indices) { list.userSelected(indices); }
};

TEST_F(ListBoxes, A_list_is_sorted_without_regard_to_case) {
    EXPECT_THAT(list.items(), ElementsAre("A", "b", "c"));
}

TEST_F(ListBoxes, New_items_take_their_places_and_the_old_ones_stay_selected) {
    userSelects({1});
    list.add({"d", "AA", "b"});
    EXPECT_THAT(list.items(), ElementsAre("A", "AA", "b", "b", "c", "d"));
    EXPECT_THAT(list.selection(), ElementsAre(false, false, true, false, false, false));
    EXPECT_EQ(list.selectedCount(), 1U);
    EXPECT_THAT(view.told, ElementsAre(Property::Items));
}

TEST_F(ListBoxes, Adding_nothing_tells_nobody) {
    list.add({});
    EXPECT_THAT(view.told, IsEmpty());
}

TEST_F(ListBoxes, The_selected_items_are_taken_out_in_one_step) {
    userSelects({0, 2});
    EXPECT_THAT(list.takeSelected(), ElementsAre("A", "c"));
    EXPECT_THAT(list.items(), ElementsAre("b"));
    EXPECT_EQ(list.selectedCount(), 0U);
    EXPECT_THAT(view.told, ElementsAre(Property::Items));
}

TEST_F(ListBoxes, Taking_what_is_not_selected_changes_nothing) {
    EXPECT_THAT(list.takeSelected(), IsEmpty());
    EXPECT_THAT(list.items(), ElementsAre("A", "b", "c"));
    EXPECT_THAT(view.told, IsEmpty());
}

TEST_F(ListBoxes, All_items_are_taken_out_in_one_step) {
    userSelects({1});
    EXPECT_THAT(list.takeAll(), ElementsAre("A", "b", "c"));
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.selectedCount(), 0U);
    EXPECT_THAT(list.takeAll(), IsEmpty());
    EXPECT_THAT(view.told, ElementsAre(Property::Items));
}

TEST_F(ListBoxes, What_is_retained_keeps_its_selection) {
    userSelects({0, 2});
    list.retain({false, true, true});
    EXPECT_THAT(list.items(), ElementsAre("b", "c"));
    EXPECT_THAT(list.selection(), ElementsAre(false, true));
    EXPECT_EQ(list.selectedCount(), 1U);
    EXPECT_THAT(view.told, ElementsAre(Property::Items));
}

TEST_F(ListBoxes, Retaining_everything_tells_nobody) {
    list.retain({true, true, true});
    EXPECT_THAT(list.items(), ElementsAre("A", "b", "c"));
    EXPECT_THAT(view.told, IsEmpty());
}

TEST_F(ListBoxes, Setting_the_items_clears_the_selection) {
    userSelects({0});
    list.setItems({"A", "b", "c"});
    EXPECT_EQ(list.selectedCount(), 0U);
    EXPECT_FALSE(list.selection().at(0));
    EXPECT_THAT(view.told, ElementsAre(Property::Items));
    list.setItems({"b", "c", "A"}); // in the end the same
    EXPECT_THAT(view.told, ElementsAre(Property::Items));
}

TEST_F(ListBoxes, The_users_selection_is_taken_over_whole) {
    userSelects({0, 1});
    userSelects({2});
    EXPECT_THAT(list.selection(), ElementsAre(false, false, true));
    EXPECT_EQ(list.selectedCount(), 1U);
    EXPECT_THAT(events, ElementsAre("GotFocus", "Click", "Click"));
    EXPECT_THAT(view.told, IsEmpty());
}

TEST_F(ListBoxes, Code_clears_the_selection_without_an_event) {
    userSelects({2});
    events.clear();
    list.clearSelection();
    list.clearSelection();
    EXPECT_EQ(list.selectedCount(), 0U);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(view.told, ElementsAre(Property::Selection));
}

TEST_F(ListBoxes, A_field_that_keeps_the_focus_swallows_the_selection) {
    form.cmdOther.LostFocus = [this] { form.cmdOther.setFocus(); };
    userSelects({1});
    list.userDoubleClicked();
    EXPECT_EQ(list.selectedCount(), 0U);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(view.told, ElementsAre(Property::Selection)); // back to what it was
}

// What the user has marked was another list's when the click was made.
TEST_F(ListBoxes, A_list_that_is_refilled_on_the_way_keeps_the_marks_on_what_is_still_there) {
    form.cmdOther.LostFocus = [this] { list.setItems({"0", "b"}); };
    userSelects({1, 2}); // "b" and "c"
    EXPECT_THAT(list.selection(), ElementsAre(false, true));
    EXPECT_EQ(list.selectedCount(), 1U);
    EXPECT_THAT(view.told, ElementsAre(Property::Items, Property::Selection));
    EXPECT_THAT(events, ElementsAre("GotFocus", "Click"));
}

TEST_F(ListBoxes, A_list_that_is_emptied_on_the_way_has_nothing_marked) {
    form.cmdOther.LostFocus = [this] { list.setItems({}); };
    userSelects({2});
    EXPECT_THAT(list.selection(), IsEmpty());
    EXPECT_THAT(events, ElementsAre("GotFocus", "Click"));
}

TEST_F(ListBoxes, A_place_that_the_list_does_not_have_is_none) {
    userSelects({-1, 3, 1});
    EXPECT_THAT(list.selection(), ElementsAre(false, true, false));
    userSelects({7, 0});
    EXPECT_THAT(list.selection(), ElementsAre(true, false, false));
    EXPECT_EQ(list.selectedCount(), 1U);
}

TEST_F(ListBoxes, All_items_can_be_marked_at_once) {
    list.userSelectedAll();
    EXPECT_THAT(list.selection(), ElementsAre(true, true, true));
    EXPECT_EQ(list.selectedCount(), 3U);
    EXPECT_THAT(view.told, ElementsAre(Property::Selection));
    EXPECT_THAT(events, ElementsAre("GotFocus", "Click"));
    list.userSelectedAll();
    EXPECT_THAT(events, ElementsAre("GotFocus", "Click")); // they are already
    list.setItems({});
    list.userSelectedAll();
    EXPECT_THAT(events, ElementsAre("GotFocus", "Click"));
}

TEST_F(ListBoxes, A_double_click_is_told) {
    list.userDoubleClicked();
    EXPECT_THAT(events, ElementsAre("GotFocus", "DblClick"));
}

TEST_F(ListBoxes, A_disabled_list_takes_no_notice) {
    list.setEnabled(false);
    userSelects({1});
    list.userDoubleClicked();
    EXPECT_EQ(list.selectedCount(), 0U);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ListBoxes, The_widest_item_is_found_from_the_widths_of_its_characters) {
    CharacterWidths widths{};
    widths.fill(5);
    widths['b'] = 40;
    widths[0xE9] = 70;
    list.measured(widths);
    list.setItems({"aaaa", "ab", "\xE9"});
    EXPECT_EQ(list.widestItem(), 70);
    EXPECT_EQ(list.widestItem("  "), 80);
    list.setItems({});
    EXPECT_EQ(list.widestItem("  "), 0);
}

TEST_F(ListBoxes, Without_a_view_every_character_is_8_pixels_wide) {
    list.setItems({"iii", "W"});
    EXPECT_EQ(list.widestItem("  "), 40);
}

TEST_F(ListBoxes, Another_font_is_told_once) {
    CharacterWidths widths{};
    widths.fill(9);
    list.measured(widths);
    list.measured(widths);
    EXPECT_THAT(events, ElementsAre("Remeasured"));
}

TEST_F(ListBoxes, The_horizontal_extent_is_told_when_it_changes) {
    list.setHorizontalExtent(120);
    list.setHorizontalExtent(120);
    EXPECT_EQ(list.horizontalExtent(), 120);
    EXPECT_THAT(view.told, ElementsAre(Property::HorizontalExtent));
}

TEST_F(ListBoxes, Moving_a_hundred_thousand_items_there_and_back_keeps_each_of_them_once) {
    constexpr int many = 100'000;
    std::vector<std::string> names;
    names.reserve(many);
    for (int i = 0; i < many; ++i) {
        names.push_back("record" + std::to_string(many + i));
    }
    list.setItems(names);
    std::vector<int> everyOther;
    for (int i = 0; i < many; i += 2) {
        everyOther.push_back(i);
    }
    userSelects(everyOther);
    form.lstOther.add(list.takeSelected());
    list.add(form.lstOther.takeAll());
    EXPECT_EQ(list.items(), names);
    EXPECT_THAT(view.told, ElementsAre(Property::Items, Property::Items, Property::Items));
}

} // namespace
} // namespace tarnwick
