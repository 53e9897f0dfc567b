#include "support/ui/scripted_presenter.hpp"
#include "ui/dialogs/frm_input_box.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(InputBox, It_asks_under_its_title_and_gives_the_line_typed) {
    frmInputBox box("Name & folder:", "Find a file");
    box.show();
    EXPECT_EQ(box.caption(), "Find a file");
    EXPECT_EQ(box.lblPrompt.caption(), "Name && folder:");
    EXPECT_EQ(box.focused(), &box.txtLine);
    box.txtLine.userTyped(" caf\xE9 & more ");
    box.userPressedEnter();
    EXPECT_FALSE(box.loaded());
    EXPECT_EQ(box.result(), " caf\xE9 & more ");
}

TEST(InputBox, Cancelled_it_gives_nothing) {
    for (const bool escape : {true, false}) {
        frmInputBox box("Name:", "Find a file");
        box.show();
        box.txtLine.userTyped("typed in vain");
        if (escape) {
            box.userPressedEscape();
        } else {
            box.userClicked(box.cmdCancel);
        }
        EXPECT_FALSE(box.loaded());
        EXPECT_EQ(box.result(), "");
    }
}

} // namespace
} // namespace tarnwick
