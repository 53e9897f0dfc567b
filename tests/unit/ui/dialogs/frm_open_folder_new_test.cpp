// How the folder picker makes a folder.
#include "unit/ui/dialogs/open_folder_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct NewFolder : OpenFolderWorld {
    NewFolder() { show(); }

    void make(std::string_view name) {
        typedText = name;
        form.userClicked(form.cmdNew);
    }

    static Message notCreated(std::string_view folder) {
        return warning("Could not create the new folder " + std::string(folder), "Warning!");
    }
};

TEST_F(NewFolder, It_is_asked_for_created_and_shown) {
    make(" new one  ");
    EXPECT_THAT(questions, ElementsAre(Question{"Current Path:  C:\\Work\r\n\r\nNew Folder Name:",
                                                "New Folder"}));
    EXPECT_TRUE(world.exists(R"(C:\Work\new one)"));
    expectShown("C:", R"(C:\Work\new one)");
    expectPathSelected();
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(NewFolder, On_a_drives_root_no_backslash_is_doubled) {
    pickDrive("D:");
    make("x");
    EXPECT_EQ(questions.front().prompt, "Current Path:  D:\\\r\n\r\nNew Folder Name:");
    EXPECT_TRUE(world.exists(R"(D:\x)"));
    expectShown("D:", R"(D:\x)");
}

TEST_F(NewFolder, It_lies_in_the_folder_that_was_typed) {
    type(R"(D:\Maps\)");
    make("new");
    EXPECT_TRUE(world.exists(R"(D:\Maps\new)"));
    expectShown("D:", R"(D:\Maps\new)");
}

TEST_F(NewFolder, A_name_of_only_blanks_or_none_creates_nothing) {
    for (const char* const none : {"", "    "}) {
        make(none);
        expectShown("C:", R"(C:\Work)");
    }
    EXPECT_EQ(recorded.count(FileOperation::CreateFolder), 0);
    EXPECT_THAT(files.listFolders(R"(C:\Work)").names, ElementsAre("A", "b"));
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_EQ(form.focused(), &form.cmdNew);
}

TEST_F(NewFolder, A_folder_that_is_there_already_becomes_the_current_one) {
    make("b");
    expectShown("C:", R"(C:\Work\b)");
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(NewFolder, What_cannot_be_created_is_told_in_one_message_and_changes_nothing) {
    for (const char* const name : {"notes.txt", R"(missing\x)", "a*b"}) {
        desktop.messages.clear();
        make(name);
        EXPECT_THAT(desktop.messages, ElementsAre(notCreated(std::string(R"(C:\Work\)") + name)));
        expectShown("C:", R"(C:\Work)");
    }
}

TEST_F(NewFolder, On_a_full_drive_or_a_drives_root_the_message_names_the_whole_path) {
    files.failAlways(FileOperation::CreateFolder, RunTimeError(ErrorNumber::DiskFull));
    pickDrive("D:");
    make("x");
    EXPECT_THAT(desktop.messages, ElementsAre(notCreated(R"(D:\x)")));
}

TEST_F(NewFolder, In_a_folder_that_was_just_removed_it_is_refused_before_the_question) {
    files.failAlways(FileOperation::CanListFolder, RunTimeError(ErrorNumber::DiskNotReady));
    form.userClicked(form.cmdNew);
    EXPECT_THAT(questions, IsEmpty());
    expectRefusal();
}

TEST_F(NewFolder, An_error_after_the_folder_was_created_is_reported) {
    files.failAt(FileOperation::ListFolders, 1, RunTimeError(ErrorNumber::PathFileAccess));
    make("new");
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub cmdNew_Click()", ErrorNumber::PathFileAccess)));
    EXPECT_TRUE(world.exists(R"(C:\Work\new)"));
    expectShown("C:", R"(C:\Work)");
}

} // namespace
} // namespace tarnwick
