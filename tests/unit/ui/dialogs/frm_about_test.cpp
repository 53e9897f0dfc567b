#include "platform/run_time_error.hpp"
#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"
#include "support/ui/scripted_presenter.hpp"
#include "ui/dialogs/frm_about.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* address = "https://tools.corvane.example/mp?page=1&part=2";

struct About : testing::Test {
    ScriptedDesktop desktop;
    frmAbout form{desktop, {.left = 1000, .top = 2000, .width = 12735, .height = 8460}, address};

    void SetUp() override {
        form.measured({.width = 5000, .height = 4000}, {.width = 20000, .height = 15000});
        form.show();
    }
};

TEST_F(About, It_says_what_the_program_is) {
    EXPECT_EQ(form.name(), "frmAbout");
    EXPECT_EQ(form.caption(), "About Tarnwick");
    EXPECT_EQ(form.lblAboutProd.caption(), "Tarnwick");
    EXPECT_EQ(form.lblVersionNum.caption(), "Version   02.00.00.07");
    EXPECT_EQ(form.Label1.caption(), "FreeWare!  Unsupported Software");
    EXPECT_THAT(form.Label2.caption(), HasSubstr("MP - A compiler for formal metadata ."));
    EXPECT_EQ(form.lblLink.caption(), address);
    EXPECT_EQ(form.lblCorvane.caption(), "Corvane");
    EXPECT_EQ(form.cmdOK.caption(), "OK");
}

TEST_F(About, The_product_name_is_large_and_the_logo_has_a_name) {
    EXPECT_EQ(form.lblAboutProd.font(), (Font{.name = {}, .points = 20}));
    EXPECT_EQ(form.lblVersionNum.font(), Font{});
    EXPECT_EQ(form.picLogo.image(), "logo");
    EXPECT_EQ(form.picLogo.accessibleName(), "The logo of Corvane");
    EXPECT_EQ(form.Picture1.image(), "");
}

TEST_F(About, It_is_centred_over_the_main_window) {
    EXPECT_EQ(form.window(), (Bounds{.left = 4867, .top = 4230, .width = 5000, .height = 4000}));
}

TEST_F(About, The_button_has_the_focus_and_the_link_can_have_it) {
    EXPECT_EQ(form.focused(), &form.cmdOK);
    form.userMovedFocus(form.picLogo);
    form.userMovedFocus(form.Label2);
    EXPECT_EQ(form.focused(), &form.cmdOK);
    form.userMovedFocus(form.lblLink);
    EXPECT_EQ(form.focused(), &form.lblLink);
}

TEST_F(About, The_link_opens_the_address_by_mouse_and_by_Enter_and_the_box_stays) {
    form.userClicked(form.lblLink);
    form.userPressedEnter();
    const ScriptedDesktop::Opened page{address, "C:\\"};
    EXPECT_THAT(desktop.opened, ElementsAre(page, page));
    EXPECT_TRUE(form.visible());
}

TEST_F(About, A_link_that_does_not_open_says_nothing) {
    desktop.openResult = 2;
    form.userClicked(form.lblLink);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(About, The_mouse_pointer_tells_the_link_from_the_rest) {
    const auto pointerOver = [this](Control& control) {
        form.lblLink.userMovedMouse();
        EXPECT_EQ(form.mousePointer(), MousePointer::ArrowQuestion);
        control.userMovedMouse();
        return form.mousePointer();
    };
    EXPECT_EQ(form.mousePointer(), MousePointer::Default);
    for (Control* const control : form.controls()) {
        EXPECT_EQ(pointerOver(*control),
                  control == &form.lblLink ? MousePointer::ArrowQuestion : MousePointer::Default)
            << control->name();
    }
    form.lblLink.userMovedMouse();
    form.userMovedMouse();
    EXPECT_EQ(form.mousePointer(), MousePointer::Default);
}

TEST_F(About, OK_Enter_Escape_and_closing_end_it) {
    ScriptedPresenter presenter;
    form.unload();
    const auto closing = {
        ScriptedPresenter::Script([this](Form&) { form.userClicked(form.cmdOK); }),
        ScriptedPresenter::Script([](Form& box) { box.userPressedEnter(); }),
        ScriptedPresenter::Script([](Form& box) { box.userPressedEscape(); }),
        ScriptedPresenter::Script([](Form& box) { box.userClosed(); })};
    for (const auto& way : closing) {
        presenter.thenUser(way);
        presenter.showModal(form);
        EXPECT_FALSE(form.loaded());
    }
}

// A desktop whose opening of documents fails with an error of its own.
class BrokenDesktop final : public ScriptedDesktop {
  public:
    std::int32_t openDocument(std::string_view /*document*/,
                              std::string_view /*workingFolder*/) override {
        throw RunTimeError(ErrorNumber::OutOfMemory);
    }
};

TEST(AboutErrors, An_error_on_opening_is_reported_once_by_whoever_opens) {
    BrokenDesktop desktop;
    frmAbout form(desktop, {}, address);
    form.show();
    form.userClicked(form.lblLink);
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("modMain", "Function StartDoc(DocName As String) As Long",
                                        ErrorNumber::OutOfMemory)));
}

} // namespace
} // namespace tarnwick
