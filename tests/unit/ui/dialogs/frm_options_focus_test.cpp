// What happens when a field is left.
#include "unit/ui/dialogs/options_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct OptionsFields : OptionsWorld {
    OptionsFields() {
        definition.bCommandLineLogging = true;
        form.show();
    }
};

TEST_F(OptionsFields, A_field_that_nobody_changed_is_not_checked) {
    world.files().remove("C:\\App\\mp.exe");
    world.files().remove("C:\\App\\cns.exe");
    form.userMovedFocus(form.txtCNS);
    form.userMovedFocus(form.txtCmdFile);
    form.userMovedFocus(form.chkRelative);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OptionsFields, A_bare_tool_name_becomes_a_file_in_the_programs_folder) {
    type(form.txtMPEXE, "  mp.exe ");
    form.userMovedFocus(form.cmdMPEXE);
    EXPECT_EQ(form.txtMPEXE.text(), "C:\\App\\mp.exe");
    type(form.txtCNS, "cns.exe");
    form.userMovedFocus(form.cmdMPEXE);
    EXPECT_EQ(form.txtCNS.text(), "C:\\App\\cns.exe");
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_EQ(form.focused(), &form.cmdMPEXE);
}

TEST_F(OptionsFields, A_tool_that_is_not_there_sends_the_focus_back_with_the_text_selected) {
    type(form.txtMPEXE, " D:\\none.exe ");
    form.userMovedFocus(form.txtCNS);
    EXPECT_EQ(form.txtMPEXE.text(), "D:\\none.exe");
    expectRefusal(form.txtMPEXE, R"(The MP executable "D:\none.exe" does not exist.)");
}

TEST_F(OptionsFields, The_CNS_tool_is_named_in_its_own_message) {
    type(form.txtCNS, "none.exe");
    form.userMovedFocus(form.txtMPEXE);
    expectRefusal(form.txtCNS, R"(The CNS executable "C:\App\none.exe" does not exist.)");
}

TEST_F(OptionsFields, An_emptied_tool_is_looked_for_in_the_programs_folder) {
    type(form.txtMPEXE, "");
    form.userMovedFocus(form.txtCNS);
    expectRefusal(form.txtMPEXE, R"(The MP executable "C:\App\" does not exist.)");
}

TEST_F(OptionsFields, An_emptied_tool_that_is_switched_off_may_be_left) {
    definition.iProcessMP = 0;
    form.chkCmdLogging.setValue(0);
    type(form.txtMPEXE, " ");
    form.userClicked(form.cmdOK);
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(definition.sMPExecutable, "");
}

TEST_F(OptionsFields, A_field_that_was_refused_once_is_not_checked_again_until_it_changes) {
    type(form.txtMPEXE, "D:\\none.exe");
    form.userMovedFocus(form.txtCNS);
    form.userMovedFocus(form.txtCNS);
    EXPECT_THAT(desktop.messages, SizeIs(1));
    EXPECT_EQ(form.focused(), &form.txtCNS);
    type(form.txtMPEXE, "D:\\other.exe");
    form.userMovedFocus(form.txtCNS);
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The MP executable \"D:\\none.exe\" does not exist."),
                            warning("The MP executable \"D:\\other.exe\" does not exist.")));
}

TEST_F(OptionsFields, Two_fields_that_are_wrong_give_one_message_each_and_no_loop) {
    type(form.txtMPEXE, "D:\\none.exe");
    form.txtCNS.setFocus();
    type(form.txtCNS, "D:\\nil.exe");
    form.userMovedFocus(form.txtMPEXE);
    expectRefusal(form.txtCNS, R"(The CNS executable "D:\nil.exe" does not exist.)");
    desktop.messages.clear();
    form.userMovedFocus(form.txtMPEXE);
    EXPECT_THAT(desktop.messages, IsEmpty());
    form.userMovedFocus(form.txtCNS);
    expectRefusal(form.txtMPEXE, R"(The MP executable "D:\none.exe" does not exist.)");
}

TEST_F(OptionsFields, Window_events_that_run_while_the_message_is_up_start_nothing) {
    type(form.txtMPEXE, "D:\\none.exe");
    type(form.txtMPEXE, "D:\\nix.exe");
    desktop.whileShown = [this](const Message&) {
        form.userMovedFocus(form.txtCmdFile);
        form.userMovedFocus(form.txtCNS);
    };
    form.userMovedFocus(form.txtCNS);
    expectRefusal(form.txtMPEXE, R"(The MP executable "D:\nix.exe" does not exist.)");
}

TEST_F(OptionsFields, A_wrong_field_says_nothing_on_the_way_to_the_end) {
    type(form.txtMPEXE, "D:\\none.exe");
    form.userClosed();
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_EQ(definition.sMPExecutable, "C:\\App\\mp.exe");
}

TEST_F(OptionsFields, Cancel_is_not_held_up_by_a_wrong_field) {
    type(form.txtMPEXE, "D:\\none.exe");
    form.userClicked(form.cmdCancel);
    EXPECT_FALSE(form.loaded());
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OptionsFields, A_wrong_field_is_heard_when_the_user_does_not_cancel_after_all) {
    type(form.txtMPEXE, "D:\\none.exe");
    form.userMovedFocus(form.cmdCancel);
    EXPECT_THAT(desktop.messages, IsEmpty());
    form.userMovedFocus(form.txtCNS);
    expectRefusal(form.txtMPEXE, R"(The MP executable "D:\none.exe" does not exist.)");
}

TEST_F(OptionsFields, Clicking_OK_with_a_wrong_field_gives_one_message) {
    type(form.txtMPEXE, "D:\\none.exe");
    form.userClicked(form.cmdOK);
    expectRefusal(form.txtMPEXE, R"(The MP executable "D:\none.exe" does not exist.)");
}

TEST_F(OptionsFields, A_log_file_without_a_folder_is_taken_as_it_is) {
    type(form.txtCmdFile, "  run.log ");
    form.userMovedFocus(form.cmdOK);
    EXPECT_EQ(form.txtCmdFile.text(), "run.log");
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OptionsFields, A_log_file_in_a_folder_that_exists_is_taken) {
    type(form.txtCmdFile, "C:\\Logs\\run.log");
    form.userMovedFocus(form.cmdOK);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OptionsFields, A_log_file_in_no_folder_sends_the_focus_back) {
    type(form.txtCmdFile, " C:\\Nowhere\\run.log ");
    form.userMovedFocus(form.cmdOK);
    expectRefusal(form.txtCmdFile,
                  R"(The command line logging file "C:\Nowhere\run.log" has an invalid folder.)");
    form.userMovedFocus(form.cmdOK);
    EXPECT_THAT(desktop.messages, SizeIs(1));
}

TEST_F(OptionsFields, A_log_file_with_a_backslash_and_no_folder_before_it_is_refused) {
    type(form.txtCmdFile, "\\run.log");
    form.userMovedFocus(form.cmdOK);
    expectRefusal(form.txtCmdFile,
                  R"(The command line logging file "\run.log" has an invalid folder.)");
}

TEST_F(OptionsFields, Errors_while_checking_a_field_are_reported_and_the_check_is_still_due) {
    const auto failWith = [this](TextBox& field, std::string_view procedure) {
        desktop.messages.clear();
        files.outOfMemory = true;
        type(field, "C:\\Logs\\x");
        form.userMovedFocus(form.cmdOK);
        EXPECT_THAT(desktop.messages, ElementsAre(report(procedure, ErrorNumber::OutOfMemory)));
        files.outOfMemory = false;
        desktop.messages.clear();
        form.userMovedFocus(field);
        form.userMovedFocus(form.cmdOK);
        field.setText("");
    };
    failWith(form.txtMPEXE, "Private Sub txtMPEXE_LostFocus()");
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The MP executable \"C:\\Logs\\x\" does not exist.")));
    failWith(form.txtCNS, "Private Sub txtCNS_LostFocus()");
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The CNS executable \"C:\\Logs\\x\" does not exist.")));
    failWith(form.txtCmdFile, "Private Sub txtCmdFile_LostFocus()");
    EXPECT_THAT(desktop.messages, IsEmpty());
}

} // namespace
} // namespace tarnwick
