#include "ui/forms/form.hpp"
#include "ui/forms/text_box.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Fields : Form {
    Fields() : Form("frmFields", "Fields") {}
    Label lblA{*this, "lblA", "&A:"};
    TextBox a{*this, "a"};
    TextBox b{*this, "b"};
    Button cmdOK{*this, "cmdOK", "OK", Button::Role::Default};
    Button cmdCancel{*this, "cmdCancel", "Cancel", Button::Role::Cancel};
};

struct Focus : testing::Test {
    Fields form;
    std::vector<std::string> events;

    void SetUp() override {
        for (Control* const control : form.controls()) {
            control->GotFocus = [this, control] { events.push_back("got " + control->name()); };
            control->LostFocus = [this, control] { events.push_back("lost " + control->name()); };
        }
        for (Button* const button : {&form.cmdOK, &form.cmdCancel}) {
            button->Click = [this, button] { events.push_back("click " + button->name()); };
        }
        form.show();
    }

    // From now on the field is never content.
    void refuse(TextBox& field) {
        field.LostFocus = [this, &field] {
            events.push_back("refused " + field.name());
            field.setFocus();
        };
    }
};

TEST_F(Focus, It_starts_on_the_first_control_that_can_have_it) {
    EXPECT_EQ(form.focused(), &form.a);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Focus, Moving_it_tells_the_control_that_loses_it_and_then_the_one_that_gets_it) {
    form.userMovedFocus(form.b);
    EXPECT_EQ(form.focused(), &form.b);
    EXPECT_THAT(events, ElementsAre("lost a", "got b"));
}

TEST_F(Focus, Staying_where_it_is_fires_nothing) {
    form.userMovedFocus(form.a);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Focus, Code_that_moves_it_fires_nothing) {
    form.b.setFocus();
    EXPECT_EQ(form.focused(), &form.b);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Focus, What_cannot_have_it_does_not_get_it) {
    form.b.setEnabled(false);
    form.b.setFocus();
    form.userMovedFocus(form.b);
    form.userMovedFocus(form.lblA);
    form.lblA.setFocus();
    form.b.setEnabled(true);
    form.b.setVisible(false);
    form.userMovedFocus(form.b);
    EXPECT_EQ(form.focused(), &form.a);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Focus, A_handler_that_sends_it_back_keeps_it_and_starts_no_other_handler) {
    refuse(form.a);
    form.userMovedFocus(form.b);
    EXPECT_EQ(form.focused(), &form.a);
    EXPECT_THAT(events, ElementsAre("refused a"));
}

TEST_F(Focus, Two_fields_that_refuse_do_not_play_ball_with_it) {
    refuse(form.a);
    refuse(form.b);
    form.userMovedFocus(form.b);
    EXPECT_EQ(form.focused(), &form.a);
    EXPECT_THAT(events, ElementsAre("refused a"));
    // The view hears of the way back as well.
    form.userMovedFocus(form.a);
    EXPECT_THAT(events, ElementsAre("refused a"));
}

TEST_F(Focus, A_move_that_is_reported_while_a_handler_runs_starts_no_other_handler) {
    form.a.LostFocus = [this] {
        events.emplace_back("lost a");
        form.userMovedFocus(form.cmdOK); // a message box let window events run
    };
    form.userMovedFocus(form.b);
    EXPECT_EQ(form.focused(), &form.cmdOK);
    EXPECT_THAT(events, ElementsAre("lost a"));
    form.userMovedFocus(form.b);
    EXPECT_THAT(events, ElementsAre("lost a", "lost cmdOK", "got b"));
}

TEST_F(Focus, A_handler_that_fails_does_not_silence_the_next_ones) {
    form.a.LostFocus = [] { throw std::string("broken"); };
    EXPECT_THROW(form.userMovedFocus(form.b), std::string);
    form.userMovedFocus(form.cmdOK);
    EXPECT_THAT(events, ElementsAre("lost b", "got cmdOK"));
}

TEST_F(Focus, Coming_back_from_another_program_to_the_same_control_is_no_event) {
    form.userMovedFocus(form.a);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Focus, A_field_that_is_left_for_Cancel_is_not_told) {
    refuse(form.a);
    form.userClicked(form.cmdCancel);
    EXPECT_EQ(form.focused(), &form.cmdCancel);
    EXPECT_THAT(events, ElementsAre("got cmdCancel", "click cmdCancel"));
}

TEST_F(Focus, A_field_that_was_left_for_Cancel_is_told_when_the_focus_moves_on) {
    form.userMovedFocus(form.cmdCancel);
    form.userMovedFocus(form.b);
    EXPECT_THAT(events, ElementsAre("got cmdCancel", "lost a", "lost cmdCancel", "got b"));
}

TEST_F(Focus, A_field_that_was_left_for_Cancel_can_still_send_the_focus_back) {
    refuse(form.a);
    form.userMovedFocus(form.cmdCancel);
    form.userMovedFocus(form.b);
    EXPECT_EQ(form.focused(), &form.a);
    EXPECT_THAT(events, ElementsAre("got cmdCancel", "refused a"));
}

TEST_F(Focus, A_field_that_was_left_for_Cancel_and_entered_again_has_lost_nothing) {
    form.userMovedFocus(form.cmdCancel);
    form.userMovedFocus(form.a);
    EXPECT_THAT(events, ElementsAre("got cmdCancel", "lost cmdCancel", "got a"));
    form.userMovedFocus(form.b);
    EXPECT_THAT(events, ElementsAre("got cmdCancel", "lost cmdCancel", "got a", "lost a", "got b"));
}

TEST_F(Focus, Code_that_returns_it_from_Cancel_to_the_field_settles_the_matter) {
    form.userMovedFocus(form.cmdCancel);
    form.a.setFocus();
    form.userMovedFocus(form.cmdCancel);
    form.b.setFocus();
    form.userMovedFocus(form.cmdOK);
    EXPECT_THAT(events,
                ElementsAre("got cmdCancel", "got cmdCancel", "lost a", "lost b", "got cmdOK"));
}

TEST_F(Focus, Closing_the_window_does_not_count_as_leaving) {
    refuse(form.a);
    form.userMovedFocus(form.cmdCancel);
    form.userClosed();
    form.userMovedFocus(form.b); // a late report
    EXPECT_THAT(events, ElementsAre("got cmdCancel"));
    EXPECT_EQ(form.focused(), nullptr);
}

TEST_F(Focus, A_handler_that_closes_the_form_is_the_last_one) {
    form.userMovedFocus(form.cmdCancel);
    form.a.LostFocus = [this] {
        events.emplace_back("lost a");
        form.unload();
    };
    form.userMovedFocus(form.b);
    EXPECT_THAT(events, ElementsAre("got cmdCancel", "lost a"));
}

TEST_F(Focus, A_field_that_refuses_swallows_the_click_that_left_it) {
    refuse(form.a);
    form.userClicked(form.cmdOK);
    EXPECT_THAT(events, ElementsAre("refused a"));
    EXPECT_EQ(form.focused(), &form.a);
}

TEST_F(Focus, A_field_that_is_content_lets_the_click_through) {
    form.userClicked(form.cmdOK);
    EXPECT_THAT(events, ElementsAre("lost a", "got cmdOK", "click cmdOK"));
}

TEST_F(Focus, A_disabled_button_is_neither_entered_nor_clicked) {
    form.cmdOK.setEnabled(false);
    form.userClicked(form.cmdOK);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(form.focused(), &form.a);
}

TEST_F(Focus, Enter_and_Escape_click_without_moving_it) {
    form.userPressedEnter();
    form.userPressedEscape();
    EXPECT_THAT(events, ElementsAre("click cmdOK", "click cmdCancel"));
    EXPECT_EQ(form.focused(), &form.a);
}

TEST_F(Focus, Enter_on_a_button_clicks_that_button) {
    form.userMovedFocus(form.cmdCancel);
    form.userPressedEnter();
    EXPECT_THAT(events, ElementsAre("got cmdCancel", "click cmdCancel"));
}

TEST_F(Focus, A_control_that_is_switched_off_passes_it_on_without_an_event) {
    form.a.setEnabled(false);
    EXPECT_EQ(form.focused(), &form.b);
    form.b.setVisible(false);
    EXPECT_EQ(form.focused(), &form.cmdOK);
    form.cmdOK.setEnabled(false);
    form.cmdCancel.setEnabled(false);
    EXPECT_EQ(form.focused(), nullptr);
    EXPECT_THAT(events, IsEmpty());
}

// Tells of itself only that it is switched off or hidden, and where the focus is by then.
struct SwitchedOff : View {
    explicit SwitchedOff(Control& control) : control_(control) { control.attach(*this); }
    void changed(Property property) override {
        if (property == Property::Enabled || property == Property::Visible) {
            const Control* const focused = control_.form().focused();
            told.push_back(focused == nullptr ? "nobody" : focused->name());
        }
    }
    std::vector<std::string> told;

  private:
    Control& control_;
};

TEST_F(Focus, It_has_moved_on_before_the_window_of_a_control_is_switched_off_or_hidden) {
    SwitchedOff a(form.a);
    SwitchedOff b(form.b);
    form.a.setEnabled(false);
    EXPECT_THAT(a.told, ElementsAre("b"));
    form.b.setVisible(false);
    EXPECT_THAT(b.told, ElementsAre("cmdOK"));
}

} // namespace
} // namespace tarnwick
