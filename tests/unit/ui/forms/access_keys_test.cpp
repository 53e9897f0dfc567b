// Where Alt and a key lead to.
#include "ui/forms/access_keys.hpp"
#include "ui/forms/check_box.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/text_box.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

struct Keys : Form {
    Keys() : Form("frmKeys", "Keys") {}
    MenuItem mnuFile{*this, "mnuFile", "&File"};
    MenuItem mnuOpen{mnuFile, "mnuOpen", "&Open..."};
    Label lblFrom{*this, "lblFrom", "&From:"};
    TextBox txtFrom{*this, "txtFrom"};
    CheckBox chkAll{*this, "chkAll", "&All"};
    Label lblHidden{*this, "lblOver", "O&ver:"};
    TextBox txtHidden{*this, "txtHidden"};
    TextBox txtOver{*this, "txtOver"};
    Frame fraAgain{*this, "fraAgain", "&again"};
    Button cmdAgain{*this, "cmdAgain", "Browse"};
    Button cmdBoth{*this, "cmdBoth", "B&&B"};
    Button cmdEnd{*this, "cmdEnd", "E\xE4&\xE4"};
};

struct AccessKeys : testing::Test {
    Keys form;
    AccessKeys() {
        form.txtHidden.setVisible(false);
        form.show();
    }
    Control* target(char key) { return accessKeyTarget(form, key).control; }
};

TEST_F(AccessKeys, The_key_of_a_caption_stands_behind_its_first_single_ampersand) {
    EXPECT_EQ(accessKeyOf("&File"), "F");
    EXPECT_EQ(accessKeyOf("E&xit"), "X");
    EXPECT_EQ(accessKeyOf("Cut && &paste"), "P");
    EXPECT_EQ(accessKeyOf("B&&B"), "");
    EXPECT_EQ(accessKeyOf("none"), "");
    EXPECT_EQ(accessKeyOf("last&"), "");
    EXPECT_EQ(accessKeyOf(""), "");
    EXPECT_EQ(accessKeyOf("&\xE4ther"), "\xC4");
}

TEST_F(AccessKeys, Only_the_menu_bar_itself_is_looked_at) {
    EXPECT_TRUE(opensMenu(form, 'f'));
    EXPECT_TRUE(opensMenu(form, 'F'));
    EXPECT_FALSE(opensMenu(form, 'o'));
}

TEST_F(AccessKeys, A_label_or_frame_leads_to_what_follows_it_and_can_have_the_focus) {
    EXPECT_EQ(target('f'), &form.txtFrom);
    EXPECT_EQ(target('v'), &form.txtOver);
    EXPECT_EQ(target('\xC4'), &form.cmdEnd);
    EXPECT_EQ(target('b'), nullptr);
    form.lblFrom.setEnabled(false);
    EXPECT_EQ(target('f'), nullptr);
}

TEST_F(AccessKeys, Controls_with_the_same_key_take_turns_from_the_focus_on) {
    form.chkAll.setFocus();
    EXPECT_EQ(target('a'), &form.cmdAgain);
    form.cmdAgain.setFocus();
    EXPECT_EQ(target('A'), &form.chkAll);
    form.txtFrom.setFocus();
    EXPECT_EQ(target('a'), &form.chkAll);
    form.txtOver.setFocus();
    EXPECT_EQ(target('a'), &form.cmdAgain);
}

TEST_F(AccessKeys, Only_a_key_without_a_double_clicks) {
    EXPECT_FALSE(accessKeyTarget(form, 'a').isOnly);
    form.fraAgain.setVisible(false);
    EXPECT_TRUE(accessKeyTarget(form, 'a').isOnly);
    EXPECT_EQ(target('a'), &form.chkAll);
}

} // namespace
} // namespace tarnwick
