#include "ui/forms/combo_box.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/indicators.hpp"
#include "ui/forms/keys.hpp"
#include "ui/forms/menu_item.hpp"
#include "ui/forms/status_bar.hpp"
#include "ui/forms/text_box.hpp"
#include "unit/ui/forms/recording_view.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Window : Form {
    Window() : Form("frmWindow", "Window") {}
    MenuItem mnuFile{*this, "mnuFile", "&File"};
    MenuItem mnuOpen{mnuFile, "mnuOpen", "&Open..."};
    MenuItem mnuBar1{mnuFile, "mnuBar1", "-"};
    MenuItem mnuExit{mnuFile, "mnuExit", "E&xit"};
    MenuItem mnuHelp{*this, "mnuHelp", "&Help"};
    TextBox txtFirst{*this, "txtFirst"};
    ComboBox cboLanguage{*this, "cboLanguage", {"English", "French"}};
    TextBox txtEdit{*this, "txtEdit"};
    StatusBar StatusBar1{*this, "StatusBar1", 3};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};
    Line linTop{*this, "linTop"};
    Button cmdOK{*this, "cmdOK", "OK", Button::Role::DefaultAndCancel};
};

struct SmallControls : testing::Test {
    Window form;
    RecordingView view;
    std::vector<std::string> events;

    void SetUp() override {
        form.cboLanguage.Change = [this] { events.push_back("Change " + form.cboLanguage.text()); };
        form.cboLanguage.Click = [this] { events.push_back("Click " + form.cboLanguage.text()); };
        form.mnuOpen.Click = [this] { events.emplace_back("Open"); };
        form.mnuFile.Click = [this] { events.emplace_back("File"); };
        form.cmdOK.Click = [this] { events.emplace_back("OK"); };
        form.show();
    }
};

TEST_F(SmallControls, A_combo_box_tells_typing_and_picking_apart) {
    form.cboLanguage.attach(view);
    form.cboLanguage.userChangedText("Fre");
    EXPECT_THAT(view.told, IsEmpty());
    form.cboLanguage.userPicked(1);
    EXPECT_THAT(events, ElementsAre("Change Fre", "Click French"));
    EXPECT_THAT(view.told, ElementsAre(Property::Text));
    EXPECT_EQ(form.focused(), &form.cboLanguage);
    form.cboLanguage.detach();
}

TEST_F(SmallControls, Code_that_sets_a_combo_box_fires_nothing) {
    form.cboLanguage.attach(view);
    form.cboLanguage.setText("Klingon");
    form.cboLanguage.setText("Klingon");
    EXPECT_EQ(form.cboLanguage.text(), "Klingon");
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(view.told, ElementsAre(Property::Text));
    form.cboLanguage.detach();
}

TEST_F(SmallControls, A_field_that_keeps_the_focus_takes_back_what_was_picked) {
    form.txtFirst.LostFocus = [this] { form.txtFirst.setFocus(); };
    form.cboLanguage.attach(view);
    form.cboLanguage.userPicked(1);
    EXPECT_EQ(form.cboLanguage.text(), "");
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(view.told, ElementsAre(Property::Text));
    form.cboLanguage.detach();
}

TEST_F(SmallControls, A_disabled_combo_box_takes_no_notice) {
    form.cboLanguage.setEnabled(false);
    form.cboLanguage.userChangedText("x");
    form.cboLanguage.userPicked(0);
    EXPECT_EQ(form.cboLanguage.text(), "");
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(SmallControls, Panels_are_counted_from_1_and_lie_side_by_side) {
    StatusBar& bar = form.StatusBar1;
    bar.attach(view);
    bar.setPanelText(1, "Ready");
    bar.setPanelText(1, "Ready");
    bar.setPanelWidth(1, 500);
    bar.setPanelWidth(2, 300);
    EXPECT_EQ(bar.panels(), 3);
    EXPECT_EQ(bar.panelText(1), "Ready");
    EXPECT_EQ(bar.panelText(3), "");
    EXPECT_EQ(bar.panelLeft(1), 0);
    EXPECT_EQ(bar.panelLeft(3), 800);
    EXPECT_EQ(bar.panelWidth(2), 300);
    EXPECT_THAT(view.told, ElementsAre(Property::Text, Property::Panels, Property::Panels));
    EXPECT_THROW(bar.setPanelText(0, ""), std::out_of_range);
    EXPECT_THROW((void)bar.panelText(4), std::out_of_range);
    bar.detach();
}

TEST_F(SmallControls, Progress_stays_between_nothing_and_everything) {
    form.ProgressBar1.setValue(40);
    EXPECT_EQ(form.ProgressBar1.value(), 40);
    form.ProgressBar1.setValue(140);
    EXPECT_EQ(form.ProgressBar1.value(), 100);
    form.ProgressBar1.setValue(-1);
    EXPECT_EQ(form.ProgressBar1.value(), 0);
}

TEST_F(SmallControls, What_is_just_looked_at_never_has_the_focus) {
    for (Control* const control :
         {static_cast<Control*>(&form.StatusBar1), static_cast<Control*>(&form.ProgressBar1),
          static_cast<Control*>(&form.linTop)}) {
        form.userMovedFocus(*control);
        control->setFocus();
        EXPECT_EQ(form.focused(), &form.txtFirst);
    }
}

TEST_F(SmallControls, The_menu_is_a_tree_of_entries) {
    EXPECT_THAT(form.menu(), ElementsAre(&form.mnuFile, &form.mnuHelp));
    EXPECT_THAT(form.mnuFile.items(), ElementsAre(&form.mnuOpen, &form.mnuBar1, &form.mnuExit));
    EXPECT_EQ(form.mnuOpen.caption(), "&Open...");
    EXPECT_TRUE(form.mnuBar1.isSeparator());
    EXPECT_FALSE(form.mnuOpen.isSeparator());
}

TEST_F(SmallControls, An_entry_is_chosen_without_moving_the_focus) {
    form.mnuOpen.userClicked();
    form.mnuFile.userClicked(); // it only opens its menu
    form.mnuExit.userClicked(); // it has no handler
    EXPECT_THAT(events, ElementsAre("Open"));
    EXPECT_EQ(form.focused(), &form.txtFirst);
}

TEST_F(SmallControls, An_entry_of_a_form_that_is_hidden_is_not_chosen) {
    form.hide();
    form.mnuOpen.userClicked();
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(SmallControls, A_field_over_a_grid_gets_its_keys_instead_of_the_buttons_and_the_caret) {
    std::vector<int> keys;
    form.txtFirst.KeyDown = [&](int code) { keys.push_back(code); };
    form.txtFirst.setLeavesKeysToGrid(true);
    EXPECT_TRUE(form.txtFirst.wantsKey(Key::up));
    EXPECT_TRUE(form.txtFirst.wantsKey(Key::down));
    EXPECT_FALSE(form.txtFirst.wantsKey(Key::left));
    form.userPressedEnter();
    form.userPressedEscape();
    EXPECT_THAT(keys, ElementsAre(Key::enter, Key::escape));
    EXPECT_THAT(events, IsEmpty());
    form.txtFirst.setLeavesKeysToGrid(false);
    form.userPressedEnter();
    EXPECT_THAT(events, ElementsAre("OK"));
}

TEST_F(SmallControls, A_button_may_have_a_use_for_Escape_of_its_own) {
    int escapes = 0;
    form.cmdOK.setFocus();
    form.cmdOK.Escape = [&escapes] { ++escapes; };
    form.userPressedEscape();
    EXPECT_EQ(escapes, 1);
    EXPECT_THAT(events, IsEmpty());
    form.userPressedEnter();
    form.txtFirst.setFocus();
    form.userPressedEscape();
    EXPECT_EQ(escapes, 1);
    EXPECT_THAT(events, ElementsAre("OK", "OK"));
}

TEST_F(SmallControls, A_control_that_is_hidden_passes_the_focus_to_its_successor) {
    form.txtEdit.passFocusTo(form.cmdOK);
    form.txtEdit.setFocus();
    form.txtEdit.setVisible(false);
    EXPECT_EQ(form.focused(), &form.cmdOK);
    form.txtEdit.setVisible(true);
    form.txtEdit.setFocus();
    form.cmdOK.setEnabled(false);
    form.txtEdit.setVisible(false);
    EXPECT_EQ(form.focused(), &form.txtFirst);
}

TEST_F(SmallControls, Hints_and_names_for_screen_readers_are_told) {
    form.txtFirst.attach(view);
    form.txtFirst.setHint("*.met");
    form.txtFirst.setHint("*.met");
    form.txtFirst.setAccessibleName("First");
    EXPECT_EQ(form.txtFirst.hint(), "*.met");
    EXPECT_EQ(form.txtFirst.accessibleName(), "First");
    EXPECT_THAT(view.told, ElementsAre(Property::Hint, Property::AccessibleName));
    form.txtFirst.detach();
}

} // namespace
} // namespace tarnwick
