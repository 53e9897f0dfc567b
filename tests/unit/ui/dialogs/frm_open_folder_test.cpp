// How the folder picker starts, and how its lists and its path field follow each other.
#include "unit/ui/dialogs/open_folder_world.hpp"

#include <filesystem>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct OpenFolder : OpenFolderWorld {};

TEST_F(OpenFolder, Its_captions_carry_their_access_keys) {
    EXPECT_EQ(form.name(), "frmOpenFolder");
    EXPECT_EQ(form.caption(), "Open Folder");
    EXPECT_EQ(form.lblDrive.caption(), "&Drive:");
    EXPECT_EQ(form.lblPath.caption(), "&Folder:");
    EXPECT_EQ(form.cmdNew.caption(), "&New Folder...");
    EXPECT_EQ(form.cmdOK.caption(), "&OK");
    EXPECT_EQ(form.cmdCancel.caption(), "&Cancel");
    EXPECT_EQ(form.txtPath.accessibleName(), "Path");
}

TEST_F(OpenFolder, The_focus_goes_from_the_path_down_to_the_buttons) {
    EXPECT_THAT(form.controls(),
                ElementsAre(&form.txtPath, &form.lblDrive, &form.drvPath, &form.lblPath,
                            &form.DirPath, &form.cmdNew, &form.cmdOK, &form.cmdCancel));
    show();
    EXPECT_EQ(form.focused(), &form.txtPath);
}

TEST_F(OpenFolder, It_is_centred_on_the_screen) {
    show();
    EXPECT_EQ(form.window(), (Bounds{.left = 3930, .top = 2760, .width = 7500, .height = 6000}));
}

TEST_F(OpenFolder, Without_a_start_folder_it_starts_at_the_current_one) {
    show();
    expectShown("C:", R"(C:\Work)");
    expectPathSelected();
    EXPECT_EQ(form.result(), "");
}

TEST_F(OpenFolder, A_start_folder_is_shown_in_both_lists_and_selected_in_the_field) {
    show(R"(D:\Maps\)");
    expectShown("D:", R"(D:\Maps)");
    expectPathSelected();
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OpenFolder, A_start_folder_that_does_not_exist_leaves_the_lists_without_a_message) {
    for (const char* const none :
         {R"(C:\nowhere)", R"(Q:\Maps)", R"(C:\Work\notes.txt)", "  ", R"(C:\W*)"}) {
        show(none);
        expectShown("C:", R"(C:\Work)");
        form.unload();
    }
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OpenFolder, A_start_folder_that_is_lost_on_the_way_is_reported_and_the_picker_opens) {
    files.failAt(FileOperation::ListFolders, 1, RunTimeError(ErrorNumber::PathFileAccess));
    show(R"(D:\Maps)");
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub Form_Load()", ErrorNumber::PathFileAccess)));
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(form.drvPath.drive(), "C:");
    EXPECT_EQ(form.DirPath.path(), R"(C:\Work)");
}

TEST_F(OpenFolder, A_drive_that_is_picked_shows_its_root) {
    show();
    pickDrive("D:");
    expectShown("D:", R"(D:\)");
    expectPathSelected();
    EXPECT_EQ(form.focused(), &form.drvPath);
    pickDrive("C:");
    expectShown("C:", R"(C:\)");
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OpenFolder, A_folder_that_is_opened_shows_in_the_field) {
    show();
    openFolder(R"(C:\Work\b)");
    expectShown("C:", R"(C:\Work\b)");
    expectPathSelected();
    openFolder(R"(C:\)");
    expectShown("C:", R"(C:\)");
    EXPECT_EQ(form.focused(), &form.DirPath);
}

TEST_F(OpenFolder, A_folder_that_is_only_selected_is_not_the_path_yet) {
    show();
    form.DirPath.userSelected(3);
    expectShown("C:", R"(C:\Work)");
}

TEST_F(OpenFolder, A_drive_that_is_not_ready_is_reported_and_the_old_one_is_back) {
    show(R"(C:\Work\b)");
    files.failAlways(FileOperation::ListFolders, RunTimeError(ErrorNumber::DiskNotReady));
    desktop.whileShown = [this](const Message&) { expectShown("C:", R"(C:\Work\b)"); };
    pickDrive("D:");
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub drvPath_Change()", ErrorNumber::DiskNotReady)));
    expectShown("C:", R"(C:\Work\b)");
    files.heal();
    pickDrive("D:");
    expectShown("D:", R"(D:\)");
}

TEST_F(OpenFolder, A_folder_that_may_not_be_opened_is_reported_and_the_old_one_stays) {
    show();
    for (const auto listing : {FileOperation::CanListFolder, FileOperation::ListFolders}) {
        files.failAlways(listing, RunTimeError(ErrorNumber::PathFileAccess));
    }
    openFolder(R"(C:\Work\b)");
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub DirPath_Change()", ErrorNumber::PathFileAccess)));
    expectShown("C:", R"(C:\Work)");
}

TEST_F(OpenFolder, A_folder_of_a_share_is_on_no_drive) {
    world.makeShare(R"(\\server\share)");
    world.makeFolder(R"(\\server\share\x)");
    show(R"(\\server\share\x)");
    expectShown("", R"(\\server\share\x)");
    files.failAlways(FileOperation::ListFolders, RunTimeError(ErrorNumber::DiskNotReady));
    pickDrive("D:");
    expectShown("", R"(\\server\share\x)");
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub drvPath_Change()", ErrorNumber::DiskNotReady)));
    files.heal();
    pickDrive("D:");
    expectShown("D:", R"(D:\)");
}

TEST_F(OpenFolder, Folders_without_a_name_are_told_once_for_each_listing) {
    std::filesystem::create_directories(world.drivesRoot() + "/d/Maps/\x81 1");
    std::filesystem::create_directories(world.drivesRoot() + "/d/Maps/\x81 2");
    show(R"(D:\Maps)");
    const auto told = warning("2 folders in the folder \"D:\\Maps\" are left out: their names have "
                              "no place in the system's code page.\r\n"
                              "The first of them is \"<U+0081> 1\".");
    EXPECT_THAT(desktop.messages, ElementsAre(told));
    openFolder(R"(D:\Maps\sheets)");
    EXPECT_THAT(desktop.messages, ElementsAre(told));
    openFolder(R"(D:\Maps)");
    EXPECT_THAT(desktop.messages, ElementsAre(told, told));
}

} // namespace
} // namespace tarnwick
