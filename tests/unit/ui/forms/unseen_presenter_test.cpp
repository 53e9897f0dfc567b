#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"
#include "ui/forms/unseen_presenter.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(UnseenPresenter, A_form_counts_as_cancelled_before_it_is_loaded_and_the_log_says_so) {
    ScriptedDesktop desktop;
    Form form("frmOptions", "Options");
    bool anythingFired = false;
    form.Load = [&] { anythingFired = true; };
    form.Unload = form.Load;
    UnseenPresenter(desktop).showModal(form);
    form.unload();
    EXPECT_FALSE(anythingFired);
    EXPECT_FALSE(form.visible());
    EXPECT_THAT(desktop.messages,
                testing::ElementsAre(
                    warning("The window \"Options\" counts as cancelled: nobody can see it.")));
}

} // namespace
} // namespace tarnwick
