#include "common/full_path.hpp"
#include "platform/run_time_error.hpp"
#include "support/hosted_world.hpp"
#include "ui/forms/drive_list.hpp"
#include "ui/forms/file_list.hpp"
#include "ui/forms/folder_list.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/keys.hpp"
#include "unit/ui/forms/recording_view.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

int errorOf(const auto& act) {
    try {
        act();
    } catch (const RunTimeError& error) {
        return error.record().number;
    }
    return 0;
}

TEST(FolderPath, A_path_is_completed_from_the_current_folder) {
    const auto full = [](std::string_view path) { return fullPath(path, R"(C:\Work)"); };
    EXPECT_EQ(full(""), R"(C:\Work)");
    EXPECT_EQ(full("D:"), R"(D:\)");
    EXPECT_EQ(full(R"(D:\)"), R"(D:\)");
    EXPECT_EQ(full(R"( D:\a\b\ )"), R"(D:\a\b)");
    EXPECT_EQ(full("D:a"), R"(D:\a)");
    EXPECT_EQ(full("D:/a//b"), R"(D:\a\b)");
    EXPECT_EQ(full(R"(sub\.\x\..)"), R"(C:\Work\sub)");
    EXPECT_EQ(full(R"(..\..\..)"), R"(C:\)");
    EXPECT_EQ(full(R"(\a)"), R"(C:\a)");
    EXPECT_EQ(full(R"(\\server\share\a\)"), R"(\\server\share\a)");
    EXPECT_EQ(full(R"(\\server\share\..)"), R"(\\server\share)");
    EXPECT_EQ(full(R"(\\server)"), R"(\\server)");
}

TEST(FolderPath, It_has_a_drive_or_a_share_and_folders_below_it) {
    EXPECT_EQ(driveOf(R"(d:\a)"), "D:");
    EXPECT_EQ(driveOf(R"(\\server\share)"), "");
    EXPECT_THAT(foldersOnTheWay(R"(C:\a\b)"), ElementsAre(R"(C:\)", "a", "b"));
    EXPECT_THAT(foldersOnTheWay(R"(C:\)"), ElementsAre(R"(C:\)"));
    EXPECT_THAT(foldersOnTheWay(R"(\\server\share\a)"), ElementsAre(R"(\\server\share)", "a"));
}

TEST(FileLists, They_find_the_files_that_match_any_pattern) {
    HostedWorld world;
    for (const char* const name : {"b.sid", "A.tif", "c.txt"}) {
        world.write(R"(C:\in\)" + std::string(name), "");
    }
    FileList list(world.files(), "*.sid;*.tif");
    EXPECT_THAT(list.names(), IsEmpty());
    list.setPath(R"(C:\in)");
    EXPECT_THAT(list.names(), ElementsAre("A.tif", "b.sid"));
    list.setPattern("");
    EXPECT_THAT(list.names(), ElementsAre("A.tif", "b.sid", "c.txt"));
    EXPECT_EQ(list.pattern(), "");
    EXPECT_EQ(list.path(), R"(C:\in)");
    list.setPath("");
    EXPECT_THAT(list.names(), IsEmpty());
}

TEST(FileLists, They_look_at_the_folder_again_only_when_told_to) {
    HostedWorld world;
    world.write(R"(C:\in\a)", "");
    FileList list(world.files(), "*");
    list.setPath(R"(C:\in)");
    EXPECT_THAT(list.names(), ElementsAre("a"));
    world.write(R"(C:\in\b)", "");
    EXPECT_THAT(list.names(), ElementsAre("a"));
    list.setPath(R"(C:\in)");
    EXPECT_THAT(list.names(), ElementsAre("a", "b"));
}

TEST(FileLists, A_folder_that_is_not_there_raises_76_and_changes_nothing) {
    HostedWorld world;
    world.write(R"(C:\in\a)", "");
    FileList list(world.files(), "*");
    list.setPath(R"(C:\in)");
    EXPECT_EQ(errorOf([&] { list.setPath(R"(C:\nowhere)"); }), 76);
    EXPECT_EQ(list.path(), R"(C:\in)");
    EXPECT_THAT(list.names(), ElementsAre("a"));
}

struct Picker : Form {
    explicit Picker(const Files& files) : Form("frmPicker", "Picker"), files_(files) {}
    const Files& files_;
    Button cmdFirst{*this, "cmdFirst", "First", Button::Role::Default};
    DriveList drvPath{*this, "drvPath", files_};
    FolderList DirPath{*this, "DirPath", files_};
};

struct PathLists : testing::Test {
    HostedWorld world{R"(C:\Work)"};
    Picker form{prepared(world).files()};
    FolderList& folders = form.DirPath;
    DriveList& drives = form.drvPath;
    RecordingView view;
    std::vector<std::string> events;

    static HostedWorld& prepared(HostedWorld& world) {
        world.makeFolder(R"(C:\Work\b\deep)");
        world.makeFolder(R"(C:\Work\A)");
        world.makeFolder(R"(C:\other)");
        world.makeDrive('D');
        return world;
    }
    void SetUp() override {
        drives.Change = [this] { events.push_back("drive " + drives.drive()); };
        folders.Change = [this] { events.push_back("path " + folders.path()); };
        folders.Refused = [this](const std::string& path) { events.push_back("refused " + path); };
        form.cmdFirst.Click = [this] { events.emplace_back("Click"); };
        form.show();
        folders.attach(view);
    }
    void TearDown() override { folders.detach(); }

    // As "  name" by depth, with "+" before what is open and the selected one in brackets.
    [[nodiscard]] std::vector<std::string> shown() const {
        std::vector<std::string> lines;
        for (std::size_t i = 0; i < folders.entries().size(); ++i) {
            const auto& entry = folders.entries()[i];
            std::string line = i == folders.selected() ? '[' + entry.name + ']' : entry.name;
            line.insert(0, entry.open ? "+" : "");
            lines.push_back(std::string(static_cast<std::size_t>(entry.depth), ' ') + line);
        }
        return lines;
    }
};

TEST_F(PathLists, The_lists_start_at_the_current_folder) {
    EXPECT_THAT(drives.drives(), ElementsAre("C:", "D:"));
    EXPECT_EQ(drives.drive(), "C:");
    EXPECT_EQ(folders.path(), R"(C:\Work)");
    EXPECT_THAT(shown(), ElementsAre(R"(+C:\)", " +[Work]", "  A", "  b"));
    EXPECT_EQ(folders.entries()[3].path, R"(C:\Work\b)");
}

TEST_F(PathLists, A_current_folder_that_cannot_be_listed_shows_the_way_to_it) {
    HostedWorld barred(R"(C:\barred)");
    barred.makeFolder(R"(C:\barred\x)");
    barred.makeUnlistable(R"(C:\barred)");
    Form other("frmOther", "");
    const FolderList list(other, "DirPath", barred.files());
    EXPECT_EQ(list.path(), R"(C:\barred)");
    EXPECT_EQ(list.entries().size(), 2U);
}

TEST_F(PathLists, A_path_that_is_set_is_told_when_it_is_another_one) {
    folders.setPath(R"(C:\Work\b\)");
    EXPECT_THAT(shown(), ElementsAre(R"(+C:\)", " +Work", "  +[b]", "   deep"));
    folders.setPath(R"(C:\Work\b)");
    folders.setPath("C:");
    EXPECT_THAT(events, ElementsAre(R"(path C:\Work\b)", R"(path C:\)"));
}

TEST_F(PathLists, Setting_the_same_path_lists_it_afresh) {
    world.makeFolder(R"(C:\Work\new)");
    folders.setPath(R"(C:\Work)");
    EXPECT_THAT(shown(), ElementsAre(R"(+C:\)", " +[Work]", "  A", "  b", "  new"));
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(view.told, ElementsAre(Property::Items, Property::Selection));
}

TEST_F(PathLists, A_path_that_cannot_be_listed_raises_and_changes_nothing) {
    EXPECT_EQ(errorOf([&] { folders.setPath(R"(C:\nowhere)"); }), 76);
    EXPECT_EQ(errorOf([&] { folders.setPath(R"(Q:\)"); }), 68);
    EXPECT_EQ(folders.path(), R"(C:\Work)");
    EXPECT_THAT(shown(), ElementsAre(R"(+C:\)", " +[Work]", "  A", "  b"));
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(PathLists, A_double_click_goes_down_and_up) {
    folders.userSelected(3);
    EXPECT_THAT(events, IsEmpty());
    folders.userOpened(3);
    folders.userOpened(0);
    EXPECT_THAT(events, ElementsAre(R"(path C:\Work\b)", R"(path C:\)"));
    EXPECT_THAT(shown(), ElementsAre(R"(+[C:\])", " other", " Work"));
}

TEST_F(PathLists, Enter_opens_the_selected_folder_and_else_presses_the_default_button) {
    folders.userSelected(2);
    form.userPressedEnter();
    form.userPressedEnter();
    EXPECT_THAT(events, ElementsAre(R"(path C:\Work\A)", "Click"));
}

TEST_F(PathLists, A_folder_that_cannot_be_opened_is_refused_in_peace) {
    world.makeUnlistable(R"(C:\Work\b)");
    folders.userOpened(3);
    EXPECT_THAT(events, ElementsAre(R"(refused C:\Work\b)"));
    EXPECT_EQ(folders.path(), R"(C:\Work)");
}

TEST_F(PathLists, A_share_has_a_root_of_its_own_and_no_drive) {
    world.makeShare(R"(\\server\share)");
    world.makeFolder(R"(\\server\share\x)");
    drives.setDrive(R"(\\server\share)");
    folders.setPath(R"(\\server\share)");
    EXPECT_EQ(drives.drive(), "");
    EXPECT_THAT(shown(), ElementsAre(R"(+[\\server\share])", " x"));
    EXPECT_THAT(events, ElementsAre(R"(path \\server\share)"));
    drives.setDrive("c:");
    EXPECT_EQ(events.back(), "drive C:");
}

TEST_F(PathLists, A_drive_that_is_set_or_picked_is_told_when_it_is_another_one) {
    drives.setDrive(R"(d:\some\folder)");
    drives.setDrive("D:");
    drives.setDrive("b"); // a folder in the current one
    drives.userPicked(0);
    drives.userPicked(1);
    EXPECT_THAT(events, ElementsAre("drive D:", "drive C:", "drive D:"));
}

TEST_F(PathLists, A_drive_that_is_not_there_raises_68_and_changes_nothing) {
    EXPECT_EQ(errorOf([&] { drives.setDrive("Q:"); }), 68);
    EXPECT_EQ(drives.drive(), "C:");
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(PathLists, A_drive_that_was_plugged_in_is_found) {
    world.makeDrive('E');
    drives.setDrive("E:");
    EXPECT_THAT(drives.drives(), ElementsAre("C:", "D:", "E:"));
    EXPECT_THAT(events, ElementsAre("drive E:"));
}

TEST_F(PathLists, The_drive_that_was_picked_is_the_one_that_the_user_saw) {
    world.makeDrive('A');
    form.cmdFirst.LostFocus = [this] { drives.setDrive("A:"); }; // A: comes first from now on
    drives.userPicked(1);
    EXPECT_EQ(drives.drive(), "D:");
    EXPECT_THAT(events, ElementsAre("drive A:", "drive D:"));
}

TEST_F(PathLists, The_folder_that_was_clicked_is_the_one_that_the_user_saw) {
    world.makeFolder(R"(C:\Work\0)");
    form.cmdFirst.LostFocus = [this] { folders.setPath(R"(C:\Work)"); }; // "0" comes first by now
    folders.userSelected(3);
    EXPECT_THAT(shown(), ElementsAre(R"(+C:\)", " +Work", "  0", "  A", "  [b]"));
    EXPECT_THAT(view.told, ElementsAre(Property::Items, Property::Selection, Property::Selection));
    form.userMovedFocus(form.cmdFirst);
    world.makeFolder(R"(C:\Work\1)");
    folders.userOpened(4);
    EXPECT_EQ(folders.path(), R"(C:\Work\b)");
}

TEST_F(PathLists, The_folder_that_was_clicked_is_found_in_any_case_of_its_letters) {
    form.cmdFirst.LostFocus = [this] { folders.setPath(R"(c:\WORK)"); };
    folders.userSelected(0);
    EXPECT_THAT(shown(), ElementsAre(R"(+[c:\])", " +WORK", "  A", "  b"));
}

TEST_F(PathLists, A_folder_that_the_list_shows_no_more_is_neither_marked_nor_opened) {
    form.cmdFirst.LostFocus = [this] { folders.setPath(R"(C:\)"); };
    folders.userSelected(2); // "A", where "Work" stands from now on
    EXPECT_THAT(shown(), ElementsAre(R"(+[C:\])", " other", " Work"));
    EXPECT_EQ(view.told.back(), Property::Selection);
    folders.setPath(R"(C:\Work)");
    form.userMovedFocus(form.cmdFirst);
    folders.userOpened(2);
    EXPECT_EQ(folders.path(), R"(C:\)");
    folders.userSelected(9);
    folders.userOpened(9);
    EXPECT_EQ(folders.path(), R"(C:\)");
}

TEST_F(PathLists, A_drive_that_the_list_does_not_have_is_not_picked) {
    drives.userPicked(2);
    EXPECT_EQ(drives.drive(), "C:");
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(PathLists, A_field_that_keeps_the_focus_swallows_what_the_user_does) {
    form.cmdFirst.LostFocus = [this] { form.cmdFirst.setFocus(); };
    drives.userPicked(1);
    folders.userSelected(3);
    folders.userOpened(3);
    EXPECT_EQ(drives.drive(), "C:");
    EXPECT_EQ(folders.selected(), 1U);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(view.told, ElementsAre(Property::Selection));
}

} // namespace
} // namespace tarnwick
