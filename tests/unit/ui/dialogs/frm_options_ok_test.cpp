// What OK accepts, refuses and applies.
#include "unit/ui/dialogs/options_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct OptionsOk : OptionsWorld {
    // Enter: the fields are not left on the way to the button.
    void ok() { form.userPressedEnter(); }
};

TEST_F(OptionsOk, It_applies_everything_marks_the_settings_changed_and_closes) {
    form.show();
    type(form.txtMPEXE, " D:\\Tools\\mp.exe ");
    form.txtCNS.setText(" C:\\App\\cns.exe ");
    form.userClicked(form.chkCmdLogging);
    type(form.txtCmdFile, " C:\\Logs\\run.log ");
    form.userClicked(form.chkRelative);
    BatchDefinition expected = definition;
    ok();
    expected.sMPExecutable = "D:\\Tools\\mp.exe";
    expected.sCNSExecutable = "C:\\App\\cns.exe";
    expected.bCommandLineLogging = true;
    expected.sCommandLineLogFile = "C:\\Logs\\run.log";
    expected.bConvertHyperlinks = true;
    expected.bSettingsChanged = true;
    EXPECT_EQ(definition, expected);
    EXPECT_FALSE(form.loaded());
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OptionsOk, Without_an_edit_it_still_marks_the_settings_changed) {
    form.show();
    form.userClicked(form.cmdOK);
    EXPECT_TRUE(definition.bSettingsChanged);
    EXPECT_FALSE(definition.bConvertHyperlinks);
    EXPECT_FALSE(form.loaded());
}

TEST_F(OptionsOk, An_emptied_MP_location_is_accepted_while_MP_is_off) {
    definition.iProcessMP = 0;
    form.show();
    type(form.txtMPEXE, "  ");
    ok();
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(definition.sMPExecutable, "");
    EXPECT_TRUE(definition.bSettingsChanged);
}

TEST_F(OptionsOk, An_emptied_MP_location_is_refused_while_MP_is_on) {
    form.show();
    type(form.txtMPEXE, "");
    ok();
    expectRefusal(form.txtMPEXE, "The MP executable file \"\" does not exist.");
}

TEST_F(OptionsOk, An_emptied_CNS_location_is_accepted_while_CNS_is_off) {
    definition.iProcessCNS = 0;
    form.show();
    type(form.txtCNS, "");
    ok();
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(definition.sCNSExecutable, "");
}

TEST_F(OptionsOk, An_emptied_CNS_location_is_refused_while_CNS_is_on) {
    form.show();
    type(form.txtCNS, "");
    ok();
    expectRefusal(form.txtCNS, "The CNS executable file \"\" does not exist.");
}

TEST_F(OptionsOk, A_tool_counts_as_on_only_when_its_box_is_exactly_1) {
    definition.iProcessMP = 2;
    form.show();
    type(form.txtMPEXE, "");
    ok();
    EXPECT_FALSE(form.loaded());
}

TEST_F(OptionsOk, A_tool_that_is_not_there_is_refused_even_while_it_is_off) {
    definition.iProcessMP = 0;
    form.show();
    type(form.txtMPEXE, " D:\\none.exe ");
    ok();
    EXPECT_EQ(form.txtMPEXE.text(), "D:\\none.exe");
    expectRefusal(form.txtMPEXE, R"(The MP executable file "D:\none.exe" does not exist.)");
}

TEST_F(OptionsOk, A_bare_name_that_was_not_left_is_taken_from_the_programs_folder_too) {
    form.show();
    type(form.txtMPEXE, "none.exe");
    ok();
    expectRefusal(form.txtMPEXE, R"(The MP executable file "C:\App\none.exe" does not exist.)");
    desktop.messages.clear();
    type(form.txtMPEXE, "mp.exe");
    ok();
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(definition.sMPExecutable, R"(C:\App\mp.exe)");
}

TEST_F(OptionsOk, MP_is_looked_at_before_CNS_and_CNS_before_logging) {
    form.show();
    form.userClicked(form.chkCmdLogging);
    form.txtMPEXE.setText("D:\\a");
    form.txtCNS.setText("D:\\b");
    ok();
    expectRefusal(form.txtMPEXE, R"(The MP executable file "D:\a" does not exist.)");
    desktop.messages.clear();
    form.txtMPEXE.setText("C:\\App\\mp.exe");
    ok();
    expectRefusal(form.txtCNS, R"(The CNS executable file "D:\b" does not exist.)");
    desktop.messages.clear();
    form.txtCNS.setText("C:\\App\\cns.exe");
    ok();
    expectRefusal(form.txtCmdFile, "Please specify a command line logging filename.");
}

TEST_F(OptionsOk, What_was_accepted_before_a_refusal_is_not_applied_by_itself) {
    const BatchDefinition before = definition;
    form.show();
    type(form.txtMPEXE, "D:\\Tools\\mp.exe");
    type(form.txtCNS, "D:\\none.exe");
    ok();
    expectRefusal(form.txtCNS, R"(The CNS executable file "D:\none.exe" does not exist.)");
    form.userPressedEscape();
    EXPECT_EQ(definition, before);
}

TEST_F(OptionsOk, Two_wrong_fields_give_one_message_at_a_time) {
    form.show();
    type(form.txtMPEXE, "D:\\none.exe");
    form.txtCNS.setFocus();
    type(form.txtCNS, "D:\\nil.exe");
    ok();
    expectRefusal(form.txtMPEXE, R"(The MP executable file "D:\none.exe" does not exist.)");
}

TEST_F(OptionsOk, Logging_without_a_file_name_is_refused) {
    form.show();
    form.userClicked(form.chkCmdLogging);
    type(form.txtCmdFile, "   ");
    ok();
    expectRefusal(form.txtCmdFile, "Please specify a command line logging filename.");
    EXPECT_FALSE(definition.bCommandLineLogging);
}

TEST_F(OptionsOk, Logging_into_a_folder_that_is_not_there_is_refused) {
    form.show();
    form.userClicked(form.chkCmdLogging);
    type(form.txtCmdFile, " C:\\Nowhere\\run.log");
    ok();
    expectRefusal(form.txtCmdFile,
                  R"(The command line logging file "C:\Nowhere\run.log" has an invalid folder.)");
}

TEST_F(OptionsOk, Logging_into_a_bare_name_or_the_drives_root_is_accepted) {
    for (const std::string_view name : {"run.log", "\\run.log"}) {
        frmOptions options(definition, files, desktop);
        definition.bCommandLineLogging = true;
        options.show();
        options.txtCmdFile.setText(name);
        options.userPressedEnter();
        EXPECT_FALSE(options.loaded());
        EXPECT_EQ(definition.sCommandLineLogFile, name);
    }
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OptionsOk, A_log_file_name_is_kept_while_logging_is_off_whatever_it_is) {
    definition.bCommandLineLogging = true;
    form.show();
    form.txtCmdFile.setText(" C:\\Nowhere\\run.log ");
    form.userClicked(form.chkCmdLogging);
    ok();
    EXPECT_FALSE(form.loaded());
    EXPECT_FALSE(definition.bCommandLineLogging);
    EXPECT_EQ(definition.sCommandLineLogFile, "C:\\Nowhere\\run.log");
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(OptionsOk, An_error_is_reported_and_leaves_dialog_and_settings_as_they_were) {
    form.show();
    const BatchDefinition before = definition;
    files.outOfMemory = true;
    ok();
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub cmdOK_Click()", ErrorNumber::OutOfMemory)));
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(definition, before);
}

} // namespace
} // namespace tarnwick
