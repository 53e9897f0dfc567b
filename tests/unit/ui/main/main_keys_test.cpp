// Keys of the main window that belong to no single control.
#include "unit/ui/main/run_ready_world.hpp"

namespace tarnwick {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

struct MainKeys : RunReadyWorld {};

// A batch overwrites what an earlier one made: nobody starts one by ending a line.
TEST_F(MainKeys, Enter_starts_nothing_but_the_button_that_has_the_focus) {
    ASSERT_TRUE(form.cmdOK.enabled());
    form.userClicked(form.chkAliases);
    form.userClicked(form.chkCFG);
    form.txtAliases.setText(R"(D:\aliases.txt)");
    form.txtCFG.setText(R"(D:\plain.cfg)");
    for (Control* const control : form.controls()) {
        if (!control->isFocusable() || !control->isUsable() ||
            dynamic_cast<Button*>(control) != nullptr) {
            continue;
        }
        form.userMovedFocus(*control);
        ASSERT_EQ(form.focused(), control) << control->name();
        form.userPressedEnter();
        EXPECT_THAT(interpreter.started, IsEmpty()) << control->name();
        EXPECT_TRUE(form.loaded()) << control->name();
    }
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_THAT(desktop.fileDialogs, IsEmpty());
    form.userMovedFocus(form.cmdOK);
    form.userPressedEnter();
    EXPECT_THAT(interpreter.started, SizeIs(4));
    form.userMovedFocus(form.cmdCancel);
    desktop.answers = {MessageAnswer::No};
    form.userPressedEnter();
    EXPECT_FALSE(form.loaded());
}

TEST_F(MainKeys, F5_lists_the_folder_again_and_is_no_change) {
    form.lstSelected.setItems({});
    listRecords("*.met");
    form.userClicked(form.cmdSelectFiles[1]);
    forgetChanges();
    world.write(R"(D:\in\new.met)", "");
    world.files().remove(R"(D:\in\a.met)");
    for (Control* const control :
         std::initializer_list<Control*>{&form.txtCNSExt, &form.grdFiles, &form.chkMP}) {
        form.userMovedFocus(*control);
        form.lstAvailable.setItems({});
        form.userPressedFunctionKey(Key::f5);
        EXPECT_THAT(form.lstAvailable.items(), testing::ElementsAre("new.met")) << control->name();
        EXPECT_THAT(form.lstSelected.items(), testing::ElementsAre("b.met"));
    }
    EXPECT_FALSE(changed());
    EXPECT_TRUE(form.cmdOK.enabled());
    form.userPressedFunctionKey(Key::f2); // which only the tables know
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(MainKeys, F5_lists_what_is_being_typed_and_the_question_about_it_stays) {
    world.write(R"(D:\empty\z.met)", "");
    type(form.txtInput, R"( D:\empty)");
    form.userPressedFunctionKey(Key::f5);
    EXPECT_EQ(form.txtInput.text(), R"(D:\empty)");
    EXPECT_THAT(form.lstAvailable.items(), testing::ElementsAre("z.met"));
    EXPECT_FALSE(form.cmdOK.enabled());
    desktop.answers = {MessageAnswer::No};
    form.userClosed();
    EXPECT_THAT(desktop.messages, testing::ElementsAre(saveQuestion(defaultIni)));
}

TEST_F(MainKeys, F5_over_a_wrong_folder_says_nothing_and_runs_nothing_there) {
    type(form.txtInput, R"(D:\nowhere)");
    form.userPressedFunctionKey(Key::f5);
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_FALSE(form.cmdOK.enabled());
    leave();
    expectRefusal(form.txtInput, R"(The "D:\nowhere" folder does not exist.)");
}

TEST_F(MainKeys, F5_while_a_folder_is_being_listed_is_one_too_many) {
    int listings = 0;
    events.handler = [&] {
        ++listings;
        form.userPressedFunctionKey(Key::f5);
    };
    form.userPressedFunctionKey(Key::f5);
    EXPECT_EQ(listings, 1);
}

TEST_F(MainKeys, F2_opens_the_current_cell_of_a_table_where_it_can_be_edited) {
    form.userMovedFocus(form.grdFiles);
    for (const int column : {0, 1, 2, 3}) {
        form.grdFiles.setCurrent({.row = 1, .column = column});
        form.grdFiles.userPressedKey(Key::f2);
        EXPECT_EQ(form.txtEdit.visible(), column >= 2) << column;
        EXPECT_EQ(form.cmdEdit.visible(), column == 3) << column;
        form.userPressedEscape();
        form.userMovedFocus(form.grdFiles);
    }
    form.grdFiles.setCurrent({.row = 2, .column = 2}); // not ticked
    form.grdFiles.userPressedKey(Key::f2);
    EXPECT_FALSE(form.txtEdit.visible());
    form.userMovedFocus(form.grdCNS);
    click(form.grdCNS, 1, 0);
    form.grdCNS.setCurrent({.row = 1, .column = 2});
    form.grdCNS.userPressedKey(Key::f2);
    EXPECT_TRUE(form.txtEditCNS.visible());
}

} // namespace
} // namespace tarnwick
