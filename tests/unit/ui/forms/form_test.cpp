#include "platform/run_time_error.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/text_box.hpp"
#include "unit/ui/forms/recording_view.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Small : Form {
    Small() : Form("frmSmall", "Small") {}
    TextBox text{*this, "text"};
    Button cmdOK{*this, "cmdOK", "OK", Button::Role::DefaultAndCancel};
};

struct FormLife : testing::Test {
    Small form;
    RecordingView view;
    std::vector<std::string> events;

    void SetUp() override {
        form.Load = [this] { events.emplace_back("Load"); };
        form.Resize = [this] { events.emplace_back("Resize"); };
        form.Unload = [this] { events.emplace_back("Unload"); };
        form.attach(view);
    }
};

TEST_F(FormLife, Showing_it_loads_it_first_and_then_lays_it_out) {
    form.show();
    EXPECT_TRUE(form.loaded());
    EXPECT_TRUE(form.visible());
    EXPECT_THAT(events, ElementsAre("Load", "Resize"));
    EXPECT_THAT(view.told, ElementsAre(Property::Visible));
}

TEST_F(FormLife, A_hidden_form_keeps_its_contents_and_is_not_loaded_again) {
    form.show();
    form.text.userTyped("x");
    form.hide();
    EXPECT_FALSE(form.visible());
    EXPECT_TRUE(form.loaded());
    form.show();
    EXPECT_EQ(form.text.text(), "x");
    EXPECT_THAT(events, ElementsAre("Load", "Resize", "Resize"));
}

TEST_F(FormLife, Unloading_fires_Unload_once_and_hides_it) {
    form.show();
    form.unload();
    form.unload();
    EXPECT_FALSE(form.visible());
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(form.focused(), nullptr);
    EXPECT_THAT(events, ElementsAre("Load", "Resize", "Unload"));
    EXPECT_THAT(view.told, ElementsAre(Property::Visible, Property::Visible));
}

TEST_F(FormLife, A_form_that_is_unloaded_while_it_loads_is_never_shown) {
    form.Load = [this] { form.unload(); };
    form.show();
    EXPECT_FALSE(form.visible());
    EXPECT_THAT(events, ElementsAre("Unload"));
    EXPECT_THAT(view.told, IsEmpty());
}

TEST_F(FormLife, Closing_the_window_unloads_it) {
    form.show();
    form.userClosed();
    form.userClosed();
    EXPECT_THAT(events, ElementsAre("Load", "Resize", "Unload"));
}

TEST_F(FormLife, The_focus_that_Load_chose_is_kept) {
    form.Load = [this] { form.cmdOK.setFocus(); };
    form.show();
    EXPECT_EQ(form.focused(), &form.cmdOK);
}

TEST_F(FormLife, A_new_size_or_state_fires_Resize_and_the_same_one_does_not) {
    form.measured({.width = 300, .height = 200}, {.width = 3000, .height = 2000});
    form.show();
    form.userResized({.width = 300, .height = 200}, WindowState::Normal);
    EXPECT_THAT(events, ElementsAre("Load", "Resize"));
    form.userResized({.width = 310, .height = 200}, WindowState::Normal);
    form.userResized({.width = 310, .height = 200}, WindowState::Minimized);
    EXPECT_THAT(events, ElementsAre("Load", "Resize", "Resize", "Resize"));
    EXPECT_EQ(form.window(), (Bounds{.left = 0, .top = 0, .width = 310, .height = 200}));
    EXPECT_EQ(form.windowState(), WindowState::Minimized);
    EXPECT_EQ(form.screen(), (Size{.width = 3000, .height = 2000}));
}

TEST_F(FormLife, Moving_it_and_naming_it_tells_the_view) {
    form.moveTo(10, 20);
    form.setCaption("Other");
    form.setCaption("Other");
    EXPECT_EQ(form.caption(), "Other");
    EXPECT_EQ(form.window().left, 10);
    EXPECT_EQ(form.window().top, 20);
    EXPECT_THAT(view.told, ElementsAre(Property::Bounds, Property::Caption));
}

TEST_F(FormLife, A_size_that_code_asks_for_fires_nothing_and_is_told_once) {
    form.measured({.width = 300, .height = 1000}, {.width = 3000, .height = 2000});
    form.show();
    view.told.clear();
    form.resizeTo({.width = 1000, .height = 1400});
    form.resizeTo({.width = 1000, .height = 1400});
    form.userResized({.width = 1000, .height = 1400}, WindowState::Normal); // so it is
    EXPECT_EQ(form.content(), (Size{.width = 880, .height = 995}));
    form.centreOnScreen();
    EXPECT_EQ(form.window(), (Bounds{.left = 1000, .top = 300, .width = 1000, .height = 1400}));
    EXPECT_THAT(view.told, ElementsAre(Property::Size, Property::Bounds));
    EXPECT_THAT(events, ElementsAre("Load", "Resize"));
}

TEST_F(FormLife, A_presenter_may_know_the_frame_better) {
    form.measured({.width = 300, .height = 1000}, {.width = 3000, .height = 2000});
    form.measuredFrame({.width = 10, .height = 400});
    EXPECT_EQ(form.content(), (Size{.width = 290, .height = 600}));
    form.userResized({.width = 500, .height = 1000}, WindowState::Normal);
    EXPECT_EQ(form.content(), (Size{.width = 490, .height = 600}));
}

TEST_F(FormLife, The_mouse_pointer_is_told_when_it_changes) {
    form.setMousePointer(MousePointer::Busy);
    form.setMousePointer(MousePointer::Busy);
    EXPECT_EQ(form.mousePointer(), MousePointer::Busy);
    EXPECT_THAT(view.told, ElementsAre(Property::Pointer));
}

TEST_F(FormLife, A_form_that_is_abandoned_goes_without_a_word) {
    form.show();
    form.abandon();
    EXPECT_FALSE(form.visible());
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(form.focused(), nullptr);
    EXPECT_THAT(events, ElementsAre("Load", "Resize"));
    form.Load = [this] { form.abandon(); };
    form.show();
    EXPECT_FALSE(form.visible());
    EXPECT_THAT(events, ElementsAre("Load", "Resize"));
}

TEST_F(FormLife, A_view_that_fails_unloads_the_form_whether_or_not_anybody_deals_with_it) {
    const auto error = std::make_exception_ptr(RunTimeError(ErrorNumber::DeviceIO));
    form.show();
    EXPECT_FALSE(form.viewFailed(error));
    EXPECT_FALSE(form.visible());
    EXPECT_THAT(events, ElementsAre("Load", "Resize", "Unload"));

    Small dealing;
    dealing.ViewFailed = [&](const std::exception_ptr& raised) {
        EXPECT_EQ(raised, error);
        EXPECT_TRUE(dealing.visible()); // it is still there to be asked about
    };
    dealing.show();
    EXPECT_TRUE(dealing.viewFailed(error));
    EXPECT_FALSE(dealing.loaded());
    EXPECT_FALSE(dealing.visible());
}

TEST_F(FormLife, One_button_can_answer_both_Enter_and_Escape) {
    int clicks = 0;
    form.cmdOK.Click = [&] { ++clicks; };
    form.show();
    form.userPressedEnter();
    form.userPressedEscape();
    EXPECT_EQ(clicks, 2);
}

TEST_F(FormLife, The_end_of_the_session_asks_first_and_unloads_when_it_is_sure) {
    form.SessionIsEnding = [this] { events.emplace_back("SessionIsEnding"); };
    form.SessionGoesOn = [this] { events.emplace_back("SessionGoesOn"); };
    form.sessionIsEnding(); // nobody sees it
    form.sessionEnded(false);
    form.show();
    events.clear();
    form.sessionIsEnding();
    form.sessionEnded(false);
    EXPECT_TRUE(form.visible());
    form.sessionIsEnding();
    form.sessionEnded(true);
    EXPECT_FALSE(form.visible());
    EXPECT_THAT(events,
                ElementsAre("SessionIsEnding", "SessionGoesOn", "SessionIsEnding", "Unload"));
}

TEST_F(FormLife, A_form_that_is_not_shown_takes_no_notice_of_the_user) {
    form.cmdOK.Click = [this] { events.emplace_back("Click"); };
    form.userPressedEnter();
    form.userPressedEscape();
    form.userClicked(form.cmdOK);
    form.userClosed();
    form.userResized({.width = 1, .height = 1}, WindowState::Normal);
    EXPECT_THAT(events, IsEmpty());
}

} // namespace
} // namespace tarnwick
