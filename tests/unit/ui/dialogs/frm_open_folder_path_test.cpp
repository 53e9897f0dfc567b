// What becomes of a path that the user types, and how the folder picker ends.
#include "support/ui/scripted_presenter.hpp"
#include "ui/dialogs/frm_open_folder.hpp"
#include "unit/ui/dialogs/open_folder_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct OpenFolderPath : OpenFolderWorld {
    OpenFolderPath() { show(); }
};

TEST_F(OpenFolderPath, The_lists_follow_a_path_when_the_field_is_left) {
    type(R"(D:\Maps\sheets)");
    EXPECT_EQ(form.DirPath.path(), R"(C:\Work)");
    form.userMovedFocus(form.DirPath);
    expectShown("D:", R"(D:\Maps\sheets)");
    EXPECT_EQ(form.focused(), &form.DirPath);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OpenFolderPath, Blanks_around_a_path_are_dropped) {
    type(R"(  D:\Maps )");
    form.userMovedFocus(form.drvPath);
    expectShown("D:", R"(D:\Maps)");
}

TEST_F(OpenFolderPath, A_path_that_counts_from_the_current_folder_is_completed) {
    type(R"(b\deep)");
    form.userMovedFocus(form.drvPath);
    expectShown("C:", R"(C:\Work\b\deep)");
}

TEST_F(OpenFolderPath, A_path_that_does_not_exist_is_refused_on_leaving_the_field) {
    type(R"(C:\nowhere)");
    form.userMovedFocus(form.DirPath);
    EXPECT_EQ(form.txtPath.text(), R"(C:\nowhere)");
    EXPECT_EQ(form.DirPath.path(), R"(C:\Work)");
    expectRefusal();
}

TEST_F(OpenFolderPath, A_file_and_a_pattern_are_no_folders) {
    for (const char* const none : {R"(C:\Work\notes.txt)", R"(C:\W*)", R"(Q:\)", "?"}) {
        desktop.messages.clear();
        type(none);
        form.userMovedFocus(form.DirPath);
        expectRefusal();
    }
}

TEST_F(OpenFolderPath, A_wrong_path_is_refused_every_time_the_field_is_left) {
    type(R"(C:\nowhere)");
    form.userMovedFocus(form.DirPath);
    form.userMovedFocus(form.drvPath);
    EXPECT_THAT(desktop.messages, ElementsAre(invalidFolder(), invalidFolder()));
    EXPECT_EQ(form.focused(), &form.txtPath);
    type(R"(C:\other)");
    form.userMovedFocus(form.drvPath);
    EXPECT_THAT(desktop.messages, SizeIs(2));
    expectShown("C:", R"(C:\other)");
}

TEST_F(OpenFolderPath, A_wrong_path_lets_the_user_use_no_list_and_no_new_folder) {
    type(R"(C:\nowhere)");
    pickDrive("D:");
    openFolder(R"(C:\Work\b)");
    form.userClicked(form.cmdNew);
    EXPECT_THAT(desktop.messages, ElementsAre(invalidFolder(), invalidFolder(), invalidFolder()));
    EXPECT_THAT(questions, IsEmpty());
    EXPECT_EQ(form.drvPath.drive(), "C:");
    EXPECT_EQ(form.DirPath.path(), R"(C:\Work)");
}

TEST_F(OpenFolderPath, Window_events_while_the_message_is_up_start_nothing) {
    type(R"(C:\nowhere)");
    desktop.whileShown = [this](const Message&) {
        form.userMovedFocus(form.drvPath);
        form.userMovedFocus(form.cmdOK);
    };
    form.userMovedFocus(form.DirPath);
    expectRefusal();
}

TEST_F(OpenFolderPath, A_field_that_nobody_edited_is_not_checked) {
    files.failAlways(FileOperation::CanListFolder, RunTimeError(ErrorNumber::DiskNotReady));
    form.userMovedFocus(form.DirPath);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OpenFolderPath, An_emptied_field_gets_the_folder_of_the_list_again) {
    openFolder(R"(C:\Work\b)");
    for (const char* const blank : {"", "   "}) {
        type(blank);
        form.userMovedFocus(form.drvPath);
        expectShown("C:", R"(C:\Work\b)");
    }
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OpenFolderPath, An_error_while_the_lists_follow_is_reported) {
    type(R"(D:\Maps)");
    files.failAt(FileOperation::ListFolders, 1, RunTimeError(ErrorNumber::PathNotFound));
    form.userMovedFocus(form.drvPath);
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub txtPath_LostFocus()", ErrorNumber::PathNotFound)));
    EXPECT_EQ(form.drvPath.drive(), "C:");
    EXPECT_EQ(form.DirPath.path(), R"(C:\Work)");
}

TEST_F(OpenFolderPath, OK_gives_the_folder_in_full) {
    type(R"(D:\Maps\)");
    form.userPressedEnter();
    EXPECT_EQ(form.result(), R"(D:\Maps)");
    EXPECT_FALSE(form.visible());
    EXPECT_TRUE(form.loaded()) << "the caller unloads it";
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OpenFolderPath, Clicking_OK_leaves_the_field_first) {
    type(R"(b)");
    form.userClicked(form.cmdOK);
    EXPECT_EQ(form.result(), R"(C:\Work\b)");
}

TEST_F(OpenFolderPath, Enter_on_a_path_that_counts_from_the_current_folder_gives_it_in_full) {
    for (const auto& [typed, folder] : std::vector<std::pair<const char*, const char*>>{
             {"b", R"(C:\Work\b)"}, {"..", R"(C:\)"}, {R"(\other)", R"(C:\other)"}}) {
        form.show();
        type(typed);
        form.userPressedEnter();
        EXPECT_EQ(form.result(), folder);
        EXPECT_FALSE(form.visible());
    }
}

// "C:records" is in the current folder for the system, and on the drive's root for the picker.
TEST_F(OpenFolderPath, What_is_checked_is_what_OK_gives) {
    world.makeFolder(R"(C:\Work\records)");
    type("C:records");
    form.userPressedEnter();
    expectRefusal();
    desktop.messages.clear();
    form.userClicked(form.cmdOK);
    expectRefusal();
    world.makeFolder(R"(C:\records)");
    form.userPressedEnter();
    EXPECT_EQ(form.result(), R"(C:\records)");
}

TEST_F(OpenFolderPath, What_is_checked_is_where_the_lists_go_and_a_new_folder_comes) {
    world.makeFolder(R"(C:\elsewhere)");
    type("C:elsewhere");
    typedText = "new";
    form.userClicked(form.cmdNew);
    EXPECT_THAT(desktop.messages, IsEmpty());
    expectShown("C:", R"(C:\elsewhere\new)");
    EXPECT_TRUE(world.exists(R"(C:\elsewhere\new)"));
}

TEST_F(OpenFolderPath, OK_refuses_a_path_that_does_not_exist_with_one_message) {
    type(R"(C:\nowhere)");
    form.userClicked(form.cmdOK);
    expectRefusal();
    desktop.messages.clear();
    form.userPressedEnter();
    expectRefusal();
}

TEST_F(OpenFolderPath, OK_checks_the_folder_even_when_nobody_edited_it) {
    files.failAlways(FileOperation::CanListFolder, RunTimeError(ErrorNumber::DiskNotReady));
    form.userPressedEnter();
    expectRefusal();
}

TEST_F(OpenFolderPath, Enter_in_an_emptied_field_does_not_pass_for_a_cancel) {
    type("");
    form.userPressedEnter();
    expectRefusal();
}

TEST_F(OpenFolderPath, An_error_in_OK_is_reported_and_the_picker_stays) {
    type(R"(C:\nowhere)");
    desktop.whileShown = [this](const Message&) {
        desktop.whileShown = nullptr;
        throw RunTimeError(ErrorNumber::OutOfMemory);
    };
    form.userPressedEnter();
    EXPECT_THAT(desktop.messages, ElementsAre(invalidFolder(), report("Private Sub cmdOK_Click()",
                                                                      ErrorNumber::OutOfMemory)));
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(form.result(), "");
}

TEST_F(OpenFolderPath, An_error_in_Cancel_is_reported) {
    struct NoScreen : View {
        void changed(Property /*property*/) override { throw RunTimeError(ErrorNumber::DeviceIO); }
    } none;
    form.attach(none);
    form.userClicked(form.cmdCancel);
    form.detach();
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub cmdCancel_Click()", ErrorNumber::DeviceIO)));
    EXPECT_EQ(form.result(), "");
}

TEST_F(OpenFolderPath, Cancel_Escape_and_closing_give_nothing_and_are_not_held_up) {
    const auto cancelling = {
        ScriptedPresenter::Script([this](Form&) { form.userClicked(form.cmdCancel); }),
        ScriptedPresenter::Script([](Form& f) { f.userPressedEscape(); }),
        ScriptedPresenter::Script([](Form& f) { f.userClosed(); })};
    for (const auto& way : cancelling) {
        form.show();
        type(R"(C:\nowhere)");
        way(form);
        EXPECT_FALSE(form.loaded());
        EXPECT_EQ(form.result(), "");
    }
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OpenFolderPath, A_wrong_path_is_heard_when_the_user_does_not_cancel_after_all) {
    type(R"(C:\nowhere)");
    form.userMovedFocus(form.cmdCancel);
    EXPECT_THAT(desktop.messages, IsEmpty());
    form.userMovedFocus(form.DirPath);
    expectRefusal();
}

struct PickFolder : OpenFolderWorld {
    ScriptedPresenter presenter;

    void TearDown() override { EXPECT_TRUE(presenter.done()); }
};

TEST_F(PickFolder, It_starts_where_the_caller_says_and_gives_what_OK_accepts) {
    presenter.thenUser([](Form& shown) {
        EXPECT_EQ(shown.caption(), "Open Text Folder");
        EXPECT_EQ(dynamic_cast<frmOpenFolder&>(shown).txtPath.text(), R"(D:\Maps)");
        shown.userPressedEnter();
    });
    EXPECT_EQ(pickFolder(presenter, files, desktop, "Open Text Folder", R"(D:\Maps)"),
              R"(D:\Maps)");
    EXPECT_THAT(presenter.shown, ElementsAre("frmOpenFolder"));
}

TEST_F(PickFolder, Without_a_title_it_has_its_own) {
    presenter.thenUser([](Form& shown) {
        EXPECT_EQ(shown.caption(), "Open Folder");
        shown.userPressedEnter();
    });
    EXPECT_EQ(pickFolder(presenter, files, desktop, "", ""), R"(C:\Work)");
}

TEST_F(PickFolder, Cancelled_it_gives_nothing) {
    presenter.thenUser([](Form& shown) { shown.userPressedEscape(); });
    presenter.thenUser([](Form& shown) { shown.userClosed(); });
    EXPECT_EQ(pickFolder(presenter, files, desktop, "", R"(D:\Maps)"), "");
    EXPECT_EQ(pickFolder(presenter, files, desktop, "", R"(D:\Maps)"), "");
}

} // namespace
} // namespace tarnwick
