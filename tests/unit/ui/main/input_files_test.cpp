// Which records are to be processed.
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct InputFiles : MainWorld {
    InputFiles() { form.show(); }

    std::vector<bool> moves() {
        std::vector<bool> enabled;
        enabled.reserve(form.cmdSelectFiles.size());
        for (const Button& button : form.cmdSelectFiles) {
            enabled.push_back(button.enabled());
        }
        return enabled;
    }
    const std::vector<std::string>& available() { return form.lstAvailable.items(); }
    const std::vector<std::string>& selected() { return form.lstSelected.items(); }
    void move(std::size_t index) { form.userClicked(form.cmdSelectFiles.at(index - 1)); }
};

TEST_F(InputFiles, Leaving_the_folder_lists_it_sorted_and_writes_the_trimmed_text_back) {
    type(form.txtInput, R"(  D:\in )");
    leave();
    EXPECT_EQ(form.txtInput.text(), R"(D:\in)");
    EXPECT_THAT(available(), ElementsAre("a.met", "b.met", "c.txt"));
    EXPECT_THAT(moves(), ElementsAre(false, true, false, false));
    EXPECT_TRUE(changed());
    EXPECT_EQ(events.timesRun, 1);
}

TEST_F(InputFiles, A_folder_that_is_not_there_sends_the_focus_back) {
    type(form.txtInput, R"( D:\nowhere )");
    form.userMovedFocus(form.txtInExt);
    expectRefusal(form.txtInput, R"(The "D:\nowhere" folder does not exist.)");
    EXPECT_EQ(form.txtInput.text(), R"(D:\nowhere)");
    EXPECT_FALSE(changed());
}

TEST_F(InputFiles, A_refused_folder_is_checked_again_and_listed_once_it_is_there) {
    type(form.txtInput, R"(D:\late)");
    leave();
    leave();
    EXPECT_EQ(desktop.messages.size(), 2U);
    world.write(R"(D:\late\x.met)", "");
    leave();
    EXPECT_EQ(desktop.messages.size(), 2U);
    EXPECT_THAT(available(), ElementsAre("x.met"));
}

TEST_F(InputFiles, A_blank_folder_gives_no_message_and_nothing_can_be_executed) {
    listRecords();
    move(2);
    ASSERT_TRUE(form.cmdOK.enabled());
    type(form.txtInput, "   ");
    leave();
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_FALSE(form.cmdOK.enabled());
    EXPECT_FALSE(form.cmdCreateBatFile.enabled());
    EXPECT_EQ(form.txtInput.text(), "   ");
}

TEST_F(InputFiles, A_folder_that_nobody_edited_is_not_listed_again) {
    listRecords();
    world.write(R"(D:\in\new.met)", "");
    form.userMovedFocus(form.txtInput);
    leave();
    EXPECT_EQ(available().size(), 3U);
    type(form.txtInput, R"(D:\in)");
    leave();
    EXPECT_EQ(available().size(), 4U);
}

TEST_F(InputFiles, Extensions_are_patterns_and_only_edited_ones_list_again) {
    listRecords();
    type(form.txtInExt, "*.txt; *.MET");
    leave();
    EXPECT_THAT(available(), ElementsAre("a.met", "b.met", "c.txt"));
    type(form.txtInExt, "*.txt");
    leave();
    EXPECT_THAT(available(), ElementsAre("c.txt"));
    world.write(R"(D:\in\d.txt)", "");
    forgetChanges();
    form.userMovedFocus(form.txtInExt);
    leave();
    EXPECT_THAT(available(), ElementsAre("c.txt"));
    EXPECT_FALSE(changed());
    type(form.txtInExt, "");
    leave();
    EXPECT_EQ(available().size(), 4U);
}

TEST_F(InputFiles, Extensions_for_no_folder_give_no_message) {
    type(form.txtInExt, "*.met");
    leave();
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_THAT(available(), IsEmpty());
}

TEST_F(InputFiles, Browsing_starts_at_the_field_and_lists_what_was_picked) {
    type(form.txtInput, R"(D:\in)");
    pickedFolders = {R"(D:\empty)", ""};
    form.userClicked(form.cmdInput);
    EXPECT_EQ(form.txtInput.text(), R"(D:\empty)");
    EXPECT_THAT(available(), IsEmpty());
    EXPECT_TRUE(changed());
    forgetChanges();
    form.userClicked(form.cmdInput);
    EXPECT_EQ(form.txtInput.text(), R"(D:\empty)");
    EXPECT_FALSE(changed());
    EXPECT_THAT(picks,
                ElementsAre(Pick{"Open Folder", R"(D:\in)"}, Pick{"Open Folder", R"(D:\empty)"}));
}

TEST_F(InputFiles, Without_CNS_a_missing_aliases_file_or_CNS_folder_does_not_block_execution) {
    listRecords();
    move(2);
    form.userClicked(form.chkCNS);
    EXPECT_FALSE(form.cmdOK.enabled()); // its folder is wanted
    type(form.txtCNS, R"(D:\cns)");
    form.userClicked(form.chkAliases);
    EXPECT_FALSE(form.cmdOK.enabled()); // and the aliases file
    form.txtCNS.setText(R"(D:\nowhere)");
    form.txtAliases.setText(R"(D:\no.txt)");
    form.userClicked(form.chkCNS);
    EXPECT_TRUE(form.cmdOK.enabled());
    EXPECT_TRUE(form.cmdCreateBatFile.enabled());
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(InputFiles, The_marked_entries_move_and_stay_sorted) {
    listRecords();
    select(form.lstAvailable, {0, 2});
    EXPECT_THAT(moves(), ElementsAre(true, true, false, false));
    move(1);
    EXPECT_THAT(available(), ElementsAre("b.met"));
    EXPECT_THAT(selected(), ElementsAre("a.met", "c.txt"));
    EXPECT_THAT(moves(), ElementsAre(false, true, false, true));
    EXPECT_EQ(form.focused(), &form.lstAvailable); // the button is switched off now
    select(form.lstSelected, {0});
    EXPECT_THAT(moves(), ElementsAre(false, true, true, true));
    move(3);
    EXPECT_THAT(available(), ElementsAre("a.met", "b.met"));
    EXPECT_THAT(selected(), ElementsAre("c.txt"));
}

TEST_F(InputFiles, All_entries_move_there_and_back) {
    listRecords();
    move(2);
    EXPECT_THAT(available(), IsEmpty());
    EXPECT_THAT(selected(), ElementsAre("a.met", "b.met", "c.txt"));
    EXPECT_THAT(moves(), ElementsAre(false, false, false, true));
    EXPECT_TRUE(form.cmdOK.enabled());
    EXPECT_TRUE(form.cmdCreateBatFile.enabled());
    move(4);
    EXPECT_THAT(available(), ElementsAre("a.met", "b.met", "c.txt"));
    EXPECT_THAT(moves(), ElementsAre(false, true, false, false));
    EXPECT_FALSE(form.cmdOK.enabled());
}

TEST_F(InputFiles, Moving_is_no_change_of_the_settings) {
    listRecords();
    forgetChanges();
    move(2);
    move(4);
    EXPECT_FALSE(changed());
}

TEST_F(InputFiles, A_double_click_moves_the_entry) {
    listRecords();
    select(form.lstAvailable, {1});
    form.lstAvailable.userDoubleClicked();
    EXPECT_THAT(selected(), ElementsAre("b.met"));
    select(form.lstSelected, {0});
    form.lstSelected.userDoubleClicked();
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_EQ(available().size(), 3U);
}

TEST_F(InputFiles, Going_to_one_list_unmarks_the_other) {
    listRecords();
    select(form.lstAvailable, {0});
    move(1);
    select(form.lstAvailable, {0, 1});
    form.userMovedFocus(form.lstSelected);
    EXPECT_EQ(form.lstAvailable.selectedCount(), 0U);
    EXPECT_THAT(moves(), ElementsAre(false, true, false, true));
    select(form.lstSelected, {0});
    form.userMovedFocus(form.lstAvailable);
    EXPECT_EQ(form.lstSelected.selectedCount(), 0U);
    EXPECT_THAT(moves(), ElementsAre(false, true, false, true));
}

TEST_F(InputFiles, No_other_move_is_known) {
    listRecords();
    form.cmdSelectFiles_Click(5);
    form.cmdSelectFiles_Click(-1);
    EXPECT_THAT(desktop.messages,
                ElementsAre(plain("Unsupported case: 5"), plain("Unsupported case: -1")));
    EXPECT_EQ(available().size(), 3U);
}

TEST_F(InputFiles, A_selected_file_that_no_pattern_matches_any_more_drops_out) {
    listRecords();
    select(form.lstAvailable, {0, 2});
    move(1);
    type(form.txtInExt, "*.met");
    leave();
    EXPECT_THAT(selected(), ElementsAre("a.met"));
    EXPECT_THAT(available(), ElementsAre("b.met"));
    EXPECT_THAT(moves(), ElementsAre(false, true, false, true));
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(InputFiles, A_selected_file_stays_selected_however_its_name_is_written) {
    listRecords();
    move(2);
    // The same names, but for case and blanks around them.
    world.files().remove(R"(D:\in\a.met)"); // to move it would leave it its old name
    world.write(R"(D:\in\A.MET)", "");
    ASSERT_THAT(world.files().listFiles(R"(D:\in)", "*.met").names, testing::Contains("A.MET"));
    world.files().moveOver(R"(D:\in\b.met)", R"(D:\in\ b.met)");
    type(form.txtInExt, "*.met");
    leave();
    EXPECT_THAT(selected(), ElementsAre("a.met", "b.met"));
    EXPECT_THAT(available(), IsEmpty());
}

TEST_F(InputFiles, The_scroll_bars_follow_the_widest_name) {
    listRecords();
    constexpr int character = 8; // without a view
    EXPECT_EQ(form.lstAvailable.horizontalExtent(), 7 * character);
    EXPECT_EQ(form.lstSelected.horizontalExtent(), 0);
    world.write(R"(D:\in\a long name.met)", "");
    type(form.txtInExt, "*.met");
    leave();
    EXPECT_EQ(form.lstAvailable.horizontalExtent(), 17 * character);
    select(form.lstAvailable, {0});
    move(1);
    EXPECT_EQ(form.lstAvailable.horizontalExtent(), 7 * character);
    EXPECT_EQ(form.lstSelected.horizontalExtent(), 17 * character);
    CharacterWidths wide;
    wide.fill(10);
    form.lstSelected.measured(wide);
    EXPECT_EQ(form.lstSelected.horizontalExtent(), 170);
}

TEST_F(InputFiles, A_folder_that_cannot_be_listed_is_reported_and_leaves_an_empty_list) {
    listRecords();
    files.failAlways(FileOperation::ListFiles, RunTimeError(ErrorNumber::PathFileAccess));
    type(form.txtInExt, "*.met");
    leave();
    EXPECT_THAT(desktop.messages, ElementsAre(report("Private Sub LoadFiles()", 75,
                                                     describe(ErrorNumber::PathFileAccess))));
    EXPECT_THAT(available(), IsEmpty());
    EXPECT_THAT(moves(), ElementsAre(false, false, false, false));
}

TEST_F(InputFiles, A_folder_that_cannot_be_listed_leaves_no_file_of_another_one_selected) {
    listRecords();
    move(2);
    files.failAlways(FileOperation::ListFiles, RunTimeError(ErrorNumber::PathFileAccess));
    type(form.txtInExt, "*.met");
    leave();
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_FALSE(form.cmdOK.enabled());
}

TEST_F(InputFiles, What_the_user_does_while_the_list_is_empty_does_no_harm) {
    listRecords();
    select(form.lstAvailable, {0});
    move(1);
    events.handler = [this] {
        EXPECT_THAT(available(), IsEmpty());
        events.handler = nullptr;
        form.cmdSelectFiles_Click(4); // the user is quick
        EXPECT_THAT(available(), ElementsAre("a.met"));
    };
    type(form.txtInput, R"(D:\in)");
    leave();
    EXPECT_THAT(available(), ElementsAre("a.met", "b.met", "c.txt"));
    EXPECT_THAT(selected(), IsEmpty());
}

// The folder has vanished between the look whether it is there and the listing.
TEST_F(InputFiles, A_listing_that_raises_empties_the_lists_and_leaves_nothing_to_execute) {
    const std::vector<std::pair<std::string, std::function<void()>>> ways{
        {"Private Sub cmdInput_Click()",
         [this] {
             pickedFolders = {R"(D:\empty)"};
             form.userClicked(form.cmdInput);
         }},
        {"Private Sub txtInput_LostFocus()",
         [this] {
             type(form.txtInput, R"(D:\empty)");
             files.failAt(FileOperation::CanListFolder, 2, RunTimeError(ErrorNumber::PathNotFound));
             leave();
         }},
        {"Private Sub txtInExt_LostFocus()", [this] {
             type(form.txtInExt, "*.met");
             files.failAt(FileOperation::CanListFolder, 2, RunTimeError(ErrorNumber::PathNotFound));
             leave();
         }}};
    for (const auto& [procedure, act] : ways) {
        files.heal();
        type(form.txtInExt, "*");
        listRecords();
        select(form.lstAvailable, {0});
        move(1);
        ASSERT_TRUE(form.cmdOK.enabled()) << procedure;
        forgetChanges();
        desktop.messages.clear();
        files.failAt(FileOperation::CanListFolder, 1, RunTimeError(ErrorNumber::PathNotFound));
        act();
        EXPECT_THAT(desktop.messages,
                    ElementsAre(report(procedure, 76, describe(ErrorNumber::PathNotFound))));
        EXPECT_THAT(available(), IsEmpty()) << procedure;
        EXPECT_THAT(selected(), IsEmpty()) << procedure;
        EXPECT_THAT(moves(), ElementsAre(false, false, false, false)) << procedure;
        EXPECT_FALSE(form.cmdOK.enabled()) << procedure;
        EXPECT_FALSE(form.cmdCreateBatFile.enabled()) << procedure;
        EXPECT_TRUE(changed()) << procedure; // the field names another folder or pattern
    }
}

TEST_F(InputFiles, Events_that_raise_while_a_folder_is_listed_leave_no_other_files_selected) {
    listRecords();
    move(2);
    events.handler = [] { throw RunTimeError(ErrorNumber::DeviceIO); };
    type(form.txtInput, R"(D:\empty)");
    leave();
    events.handler = nullptr;
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_FALSE(form.cmdOK.enabled());
}

TEST_F(InputFiles, Whatever_raises_on_the_way_Execute_follows_what_the_window_shows_then) {
    listRecords();
    move(2);
    type(form.txtInput, "");
    files.failAlways(FileOperation::CanListFolder, RunTimeError(ErrorNumber::PathNotFound));
    services.pickFolder = nullptr;
    type(form.txtInput, R"(D:\nowhere)");
    desktop.whileShown = [this](const Message&) {
        desktop.whileShown = nullptr;
        throw RunTimeError(ErrorNumber::DeviceIO);
    };
    form.cmdOK.setEnabled(true);
    leave();
    EXPECT_FALSE(form.cmdOK.enabled());
}

} // namespace
} // namespace tarnwick
