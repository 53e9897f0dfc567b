#include "ui/forms/check_box.hpp"
#include "ui/forms/form.hpp"
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

struct Panel : Form {
    Panel() : Form("frmPanel", "Panel") {}
    Label lblName{*this, "lblName", "&Name:"};
    TextBox txtName{*this, "txtName"};
    CheckBox chkSure{*this, "chkSure", "&Sure"};
    Button cmdGo{*this, "cmdGo", "Go"};
};

struct Controls : testing::Test {
    Panel form;
    std::vector<std::string> events;

    void SetUp() override {
        form.txtName.Change = [this] { events.emplace_back("Change"); };
        form.chkSure.Click = [this] { events.emplace_back("Click"); };
        form.cmdGo.Click = [this] { events.emplace_back("Click"); };
        form.show();
    }
};

TEST_F(Controls, Code_that_sets_properties_fires_no_event) {
    form.txtName.setText("x");
    form.txtName.selectAll();
    form.chkSure.setValue(1);
    form.cmdGo.setEnabled(false);
    form.cmdGo.setFocus();
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Controls, A_click_turns_a_check_box_over_before_its_handler_runs) {
    int seen = -1;
    form.chkSure.Click = [&] { seen = form.chkSure.value(); };
    form.chkSure.userClicked();
    EXPECT_EQ(seen, 1);
    form.chkSure.userClicked();
    EXPECT_EQ(seen, 0);
}

TEST_F(Controls, A_check_box_is_on_only_when_its_value_is_exactly_1) {
    form.chkSure.setValue(2);
    EXPECT_FALSE(form.chkSure.ticked());
    form.chkSure.userClicked();
    EXPECT_EQ(form.chkSure.value(), 1);
    EXPECT_TRUE(form.chkSure.ticked());
}

TEST_F(Controls, Typing_replaces_the_selection_and_puts_the_caret_behind_it) {
    form.txtName.setText("abcd");
    form.txtName.userSelected(1, 2);
    form.txtName.userTyped("XYZ");
    EXPECT_EQ(form.txtName.text(), "aXYZd");
    EXPECT_EQ(form.txtName.selStart(), 4);
    EXPECT_EQ(form.txtName.selLength(), 0);
    EXPECT_THAT(events, ElementsAre("Change"));
}

TEST_F(Controls, What_the_view_shows_already_is_taken_over_and_fires_Change) {
    form.txtName.userChangedText("abc", 3, 0);
    EXPECT_EQ(form.txtName.text(), "abc");
    EXPECT_EQ(form.txtName.selStart(), 3);
    EXPECT_THAT(events, ElementsAre("Change"));
}

TEST_F(Controls, A_selection_never_reaches_beyond_the_text) {
    form.txtName.setText("abc");
    form.txtName.select(2, 9);
    EXPECT_EQ(form.txtName.selStart(), 2);
    EXPECT_EQ(form.txtName.selLength(), 1);
    form.txtName.select(-4, 2);
    EXPECT_EQ(form.txtName.selStart(), 0);
    EXPECT_EQ(form.txtName.selLength(), 2);
    form.txtName.setText("x");
    EXPECT_EQ(form.txtName.selStart(), 0);
    EXPECT_EQ(form.txtName.selLength(), 0);
}

TEST_F(Controls, Keys_reach_their_handlers) {
    std::vector<int> keys;
    form.txtName.KeyDown = [&](int keyCode) { keys.push_back(keyCode); };
    form.txtName.KeyUp = [&](int keyCode) { keys.push_back(-keyCode); };
    form.txtName.userPressedKey(56);
    form.txtName.userReleasedKey(56);
    EXPECT_THAT(keys, ElementsAre(56, -56));
}

TEST_F(Controls, A_disabled_or_invisible_control_takes_no_notice_of_the_user) {
    form.txtName.KeyDown = [this](int) { events.emplace_back("KeyDown"); };
    form.txtName.KeyUp = [this](int) { events.emplace_back("KeyUp"); };
    const auto actOnAll = [this] {
        form.txtName.userTyped("x");
        form.txtName.userChangedText("x", 1, 0);
        form.txtName.userSelected(0, 1);
        form.txtName.userPressedKey(65);
        form.txtName.userReleasedKey(65);
        form.chkSure.userClicked();
        form.cmdGo.userClicked();
    };
    for (Control* const control : form.controls()) {
        control->setEnabled(false);
    }
    actOnAll();
    for (Control* const control : form.controls()) {
        control->setEnabled(true);
        control->setVisible(false);
    }
    actOnAll();
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(form.txtName.text(), "");
    EXPECT_EQ(form.chkSure.value(), 0);
}

TEST_F(Controls, Read_only_text_cannot_be_typed_over_but_selected) {
    form.txtName.setText("abc");
    form.txtName.setReadOnly(true);
    form.txtName.userTyped("x");
    form.txtName.userChangedText("x", 0, 0);
    form.txtName.userSelected(1, 1);
    EXPECT_EQ(form.txtName.text(), "abc");
    EXPECT_EQ(form.txtName.selStart(), 1);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Controls, A_view_is_told_of_every_change_once_and_of_nothing_that_stays) {
    RecordingView view;
    form.txtName.attach(view);
    form.txtName.setText("a");
    form.txtName.setText("a");
    form.txtName.selectAll();
    form.txtName.setEnabled(true);
    form.txtName.setBounds({.left = 1, .top = 2, .width = 3, .height = 4});
    form.txtName.setBounds({.left = 1, .top = 2, .width = 3, .height = 4});
    form.txtName.setReadOnly(true);
    form.txtName.setFont({.name = "Courier New", .points = 9});
    form.txtName.setFocus();
    form.txtName.setVisible(false);
    EXPECT_THAT(view.told, ElementsAre(Property::Text, Property::Selection, Property::Bounds,
                                       Property::ReadOnly, Property::Font, Property::Focus,
                                       Property::Visible));
    form.txtName.detach();
    form.txtName.setText("b");
    EXPECT_EQ(view.told.size(), 7U);
}

TEST_F(Controls, A_view_is_told_of_captions_and_values) {
    RecordingView view;
    form.chkSure.attach(view);
    form.chkSure.setCaption("Very &sure");
    form.chkSure.userClicked();
    EXPECT_EQ(form.chkSure.caption(), "Very &sure");
    EXPECT_THAT(view.told, ElementsAre(Property::Caption, Property::Value));
    form.chkSure.detach();
}

TEST_F(Controls, A_view_is_not_told_what_it_shows_already) {
    RecordingView view;
    form.txtName.attach(view);
    form.txtName.userChangedText("abc", 3, 0);
    form.txtName.userSelected(0, 3);
    EXPECT_THAT(view.told, IsEmpty());
    form.txtName.detach();
}

TEST_F(Controls, What_a_view_raises_reaches_the_code_that_made_the_change) {
    struct FailingView : View {
        void changed(Property) override { throw Broken(); }
        struct Broken {};
    } view;
    form.txtName.attach(view);
    EXPECT_THROW(form.txtName.setText("x"), FailingView::Broken);
    form.txtName.detach();
}

TEST_F(Controls, A_form_knows_its_controls_in_the_order_of_their_making) {
    EXPECT_THAT(form.controls(),
                ElementsAre(&form.lblName, &form.txtName, &form.chkSure, &form.cmdGo));
    EXPECT_EQ(form.find("chkSure"), &form.chkSure);
    EXPECT_EQ(form.find("chksure"), nullptr);
    EXPECT_EQ(&form.txtName.form(), &form);
}

} // namespace
} // namespace tarnwick
