#include "ui/forms/captioned.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/keys.hpp"
#include "ui/forms/picture.hpp"
#include "unit/ui/forms/recording_view.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Box : Form {
    Box() : Form("frmBox", "Box") {}
    Button cmdOK{*this, "cmdOK", "OK", Button::Role::DefaultAndCancel};
    Picture picMark{*this, "picMark", "mark"};
    Label lblName{*this, "lblName", "Name"};
    LinkLabel lblMore{*this, "lblMore", "https://box.example/?a&b"};
};

struct Mouse : testing::Test {
    Box form;
    std::vector<std::string> events;

    void SetUp() override {
        form.MouseMove = [this] { events.emplace_back("form"); };
        form.lblMore.MouseMove = [this] { events.emplace_back("link"); };
        form.lblMore.Click = [this] { events.emplace_back("Click"); };
        form.cmdOK.Click = [this] { events.emplace_back("OK"); };
        form.show();
    }
};

TEST_F(Mouse, A_control_without_a_handler_for_its_moves_leaves_them_to_the_form) {
    form.lblMore.userMovedMouse();
    form.lblName.userMovedMouse();
    form.userMovedMouse();
    EXPECT_THAT(events, ElementsAre("link", "form", "form"));
}

TEST_F(Mouse, A_control_that_is_switched_off_leaves_them_to_the_form_too) {
    form.lblMore.setEnabled(false);
    form.lblMore.userMovedMouse();
    EXPECT_THAT(events, ElementsAre("form"));
}

TEST_F(Mouse, A_form_that_is_not_shown_takes_no_notice_of_it) {
    form.hide();
    form.userMovedMouse();
    form.lblMore.userMovedMouse();
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Mouse, A_link_is_clicked_like_a_button_and_takes_Enter_for_itself) {
    form.userClicked(form.lblMore);
    EXPECT_EQ(form.focused(), &form.lblMore);
    form.userPressedEnter();
    form.lblMore.userPressedKey(Key::left);
    EXPECT_THAT(events, ElementsAre("Click", "Click"));
    form.userPressedEscape();
    form.userMovedFocus(form.cmdOK);
    form.userPressedEnter();
    EXPECT_THAT(events, ElementsAre("Click", "Click", "OK", "OK"));
}

TEST_F(Mouse, What_is_just_looked_at_never_has_the_focus) {
    form.userMovedFocus(form.picMark);
    form.lblName.setFocus();
    EXPECT_EQ(form.focused(), &form.cmdOK);
    EXPECT_EQ(form.picMark.image(), "mark");
}

TEST_F(Mouse, The_font_of_a_label_is_told_when_it_changes) {
    RecordingView view;
    form.lblName.attach(view);
    form.lblName.setFont({.name = {}, .points = 20});
    form.lblName.setFont({.name = {}, .points = 20});
    form.lblName.detach();
    EXPECT_THAT(view.told, ElementsAre(Property::Font));
    EXPECT_EQ(form.lblName.font(), (Font{.name = {}, .points = 20}));
}

} // namespace
} // namespace tarnwick
