// The text fields beside the check boxes, and their browse buttons.
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Fields : MainWorld {
    Fields() {
        form.show();
        form.userClicked(form.chkCNS);
        form.userClicked(form.chkAliases);
        form.userClicked(form.chkCFG);
        forgetChanges();
    }
};

TEST_F(Fields, A_CNS_folder_that_exists_is_a_change) {
    type(form.txtCNS, R"(  D:\cns )");
    EXPECT_FALSE(changed());
    leave();
    EXPECT_EQ(form.txtCNS.text(), R"(D:\cns)");
    EXPECT_TRUE(changed());
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Fields, A_CNS_folder_that_is_not_there_sends_the_focus_back_and_is_no_change) {
    type(form.txtCNS, R"( D:\nowhere )");
    leave();
    expectRefusal(form.txtCNS, R"(The "D:\nowhere" folder does not exist.)");
    EXPECT_FALSE(changed());
}

TEST_F(Fields, An_aliases_file_that_is_not_there_sends_the_focus_back) {
    type(form.txtAliases, R"( D:\no.txt )");
    leave();
    expectRefusal(form.txtAliases, R"(The Aliases file "D:\no.txt" does not exist.)");
    EXPECT_FALSE(changed());
}

TEST_F(Fields, A_configuration_file_that_is_not_there_sends_the_focus_back) {
    type(form.txtCFG, R"(D:\no.cfg)");
    leave();
    expectRefusal(form.txtCFG, R"(The configuration file "D:\no.cfg" does not exist.)");
    EXPECT_FALSE(changed());
}

TEST_F(Fields, A_bare_file_name_is_looked_for_in_the_programs_folder) {
    world.write(R"(C:\App\my.txt)", "");
    world.write(R"(C:\App\my.cfg)", "");
    type(form.txtAliases, " my.txt");
    type(form.txtCFG, "my.cfg ");
    leave();
    EXPECT_EQ(form.txtAliases.text(), R"(C:\App\my.txt)");
    EXPECT_EQ(form.txtCFG.text(), R"(C:\App\my.cfg)");
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_TRUE(changed());
    type(form.txtAliases, "none.txt");
    leave();
    expectRefusal(form.txtAliases, R"(The Aliases file "C:\App\none.txt" does not exist.)");
}

TEST_F(Fields, Blank_fields_give_no_message_and_emptying_one_is_a_change) {
    for (TextBox* const field : {&form.txtCNS, &form.txtAliases, &form.txtCFG}) {
        form.userMovedFocus(*field);
        leave();
        EXPECT_FALSE(changed()) << field->name();
        type(*field, "  ");
        leave();
        EXPECT_TRUE(changed()) << field->name();
        forgetChanges();
    }
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Fields, A_configuration_file_that_names_the_outputs_takes_them_over_when_left) {
    type(form.txtCNS, R"(D:\cns)");
    type(form.txtCFG, R"(D:\names.cfg)");
    leave();
    EXPECT_TRUE(form.definition().bCfgNamesInput);
    EXPECT_TRUE(form.definition().bCfgNamesOutput);
    EXPECT_EQ(form.txtCNS.text(), "");
    EXPECT_EQ(form.txtCNSExt.text(), "");
    EXPECT_FALSE(form.txtCNS.enabled());
    EXPECT_FALSE(form.grdFiles.enabled());
    for (int row = 1; row <= 7; ++row) {
        EXPECT_EQ(form.grdFiles.text(row, 0), "\xA8");
        EXPECT_EQ(form.grdFiles.text(row, 2), "");
        EXPECT_EQ(form.grdFiles.cell(row, 2).back, Colour(SystemColour::ButtonFace));
    }
    // Another file that names none frees the controls, but switches no row on again.
    type(form.txtCFG, R"(D:\plain.cfg)");
    leave();
    EXPECT_FALSE(form.definition().bCfgNamesOutput);
    EXPECT_TRUE(form.txtCNS.enabled());
    EXPECT_TRUE(form.grdFiles.enabled());
    EXPECT_EQ(form.grdFiles.text(1, 0), "\xA8");
}

TEST_F(Fields, A_configuration_file_that_cannot_be_read_names_nothing) {
    type(form.txtCFG, R"(D:\names.cfg)");
    leave();
    files.failAlways(FileOperation::OpenForReading, RunTimeError(ErrorNumber::PermissionDenied));
    form.userMovedFocus(form.txtCFG);
    leave();
    EXPECT_THAT(desktop.messages, ElementsAre(report("Private Sub GetCFGValues()", 70,
                                                     describe(ErrorNumber::PermissionDenied))));
    EXPECT_FALSE(form.definition().bCfgNamesOutput);
    EXPECT_TRUE(form.grdFiles.enabled());
}

TEST_F(Fields, Two_invalid_fields_give_one_message_each_time_one_is_left_and_no_loop) {
    type(form.txtCNS, R"(D:\no1)");
    form.userMovedFocus(form.txtAliases);
    EXPECT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(form.focused(), &form.txtCNS);
    form.txtAliases.setText(R"(D:\no2.txt)"); // both are wrong now
    form.userMovedFocus(form.txtAliases);
    EXPECT_EQ(desktop.messages.size(), 2U);
    EXPECT_EQ(form.focused(), &form.txtCNS);
    type(form.txtCNS, R"(D:\cns)");
    form.userMovedFocus(form.txtAliases);
    EXPECT_EQ(form.focused(), &form.txtAliases);
    form.userMovedFocus(form.txtCNS);
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning(R"(The "D:\no1" folder does not exist.)"),
                            warning(R"(The "D:\no1" folder does not exist.)"),
                            warning(R"(The Aliases file "D:\no2.txt" does not exist.)")));
    EXPECT_EQ(form.focused(), &form.txtAliases);
}

TEST_F(Fields, A_field_with_an_error_does_not_hold_up_closing_in_any_way) {
    type(form.txtCNS, R"(D:\no)");
    desktop.answers = {MessageAnswer::No};
    form.userClicked(form.cmdCancel);
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
    EXPECT_FALSE(form.loaded());
}

TEST_F(Fields, A_field_with_an_error_does_not_hold_up_the_windows_own_close_button) {
    type(form.txtCFG, R"(D:\no.cfg)");
    desktop.answers = {MessageAnswer::No};
    form.userClosed();
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
    EXPECT_FALSE(form.loaded());
}

TEST_F(Fields, A_click_that_leaves_a_wrong_field_is_lost) {
    type(form.txtCNS, R"(D:\no)");
    form.userClicked(form.chkMP);
    EXPECT_TRUE(form.chkMP.ticked());
    EXPECT_EQ(form.focused(), &form.txtCNS);
}

TEST_F(Fields, Typing_clears_the_status) {
    for (TextBox* const field : {&form.txtCNS, &form.txtAliases, &form.txtCFG, &form.txtInput}) {
        form.userMovedFocus(*field);
        form.StatusBar1.setPanelText(1, "Done!");
        field->userTyped("D");
        EXPECT_EQ(form.StatusBar1.panelText(1), "") << field->name();
        field->setText("");
    }
    form.userMovedFocus(form.txtInExt);
    form.StatusBar1.setPanelText(1, "Done!");
    form.txtInExt.userTyped("*");
    EXPECT_EQ(form.StatusBar1.panelText(1), "Done!");
}

TEST_F(Fields, The_key_of_the_eight_takes_back_what_it_typed) {
    const Message wildcard = plain("Please do not use the wildcard \"*\" character.");
    for (const char* const typed : {"*", "8"}) {
        form.userMovedFocus(form.txtCNSExt);
        form.txtCNSExt.setText(".cns");
        form.txtCNSExt.userSelected(2, 0);
        form.txtCNSExt.userTyped(typed);
        form.txtCNSExt.userReleasedKey(56);
        EXPECT_EQ(form.txtCNSExt.text(), ".cns");
        EXPECT_EQ(form.txtCNSExt.selStart(), 2);
        EXPECT_EQ(form.txtCNSExt.selLength(), 0);
    }
    EXPECT_THAT(desktop.messages, ElementsAre(wildcard, wildcard));
}

TEST_F(Fields, The_key_of_the_eight_in_front_of_everything_takes_nothing) {
    form.userMovedFocus(form.txtCNSExt);
    form.txtCNSExt.userSelected(0, 0);
    form.txtCNSExt.userReleasedKey(56);
    EXPECT_EQ(form.txtCNSExt.text(), ".cns");
    EXPECT_EQ(desktop.messages.size(), 1U);
}

TEST_F(Fields, A_star_that_is_pasted_or_typed_on_the_keypad_is_not_caught) {
    constexpr int keypadStar = 106;
    form.userMovedFocus(form.txtCNSExt);
    form.txtCNSExt.userTyped("*");
    form.txtCNSExt.userReleasedKey(keypadStar);
    EXPECT_EQ(form.txtCNSExt.text(), "*.cns");
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_TRUE(changed());
}

TEST_F(Fields, Browsing_for_the_CNS_folder_starts_at_the_input_folder) {
    form.txtInput.setText(R"(D:\in)");
    form.txtCNS.setText(R"(D:\out)");
    pickedFolders = {R"(D:\cns)", ""};
    form.userClicked(form.cmdCNS);
    EXPECT_EQ(form.txtCNS.text(), R"(D:\cns)");
    EXPECT_TRUE(changed());
    forgetChanges();
    form.userClicked(form.cmdCNS);
    EXPECT_EQ(form.txtCNS.text(), R"(D:\cns)");
    EXPECT_FALSE(changed());
    EXPECT_THAT(picks,
                ElementsAre(Pick{"Open Folder", R"(D:\in)"}, Pick{"Open Folder", R"(D:\in)"}));
}

TEST_F(Fields, Browsing_for_the_aliases_file) {
    desktop.chosenFiles = {R"(D:\aliases.txt)", std::nullopt};
    form.userClicked(form.cmdAliases);
    EXPECT_EQ(form.txtAliases.text(), R"(D:\aliases.txt)");
    EXPECT_TRUE(changed());
    forgetChanges();
    form.userClicked(form.cmdAliases);
    EXPECT_EQ(form.txtAliases.text(), R"(D:\aliases.txt)");
    EXPECT_FALSE(changed());
    FileDialog expected{.kind = FileDialog::Kind::Open,
                        .title = "Open Aliases File",
                        .filter = "Text File (*.txt)|*.txt|All Files (*.*)|*.*",
                        .filterIndex = 1,
                        .fileName = {},
                        .initialFolder = {},
                        .hideReadOnly = true};
    FileDialog second = expected;
    second.fileName = R"(D:\aliases.txt)";
    EXPECT_THAT(desktop.fileDialogs, ElementsAre(expected, second));
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Fields, A_browse_that_gives_no_name_leaves_the_field_and_looks_at_the_buttons_again) {
    type(form.txtAliases, R"(D:\aliases.txt)");
    type(form.txtCFG, R"(D:\plain.cfg)");
    leave();
    for (Button* const button : {&form.cmdAliases, &form.cmdCFG}) {
        for (const bool cancelled : {false, true}) {
            forgetChanges();
            form.cmdOK.setEnabled(true); // which nothing here allows
            desktop.chosenFiles = {cancelled ? std::nullopt : std::optional<std::string>("")};
            form.userClicked(*button);
            EXPECT_EQ(form.cmdOK.enabled(), cancelled) << button->name();
            EXPECT_FALSE(changed());
        }
    }
    EXPECT_EQ(form.txtAliases.text(), R"(D:\aliases.txt)");
    EXPECT_EQ(form.txtCFG.text(), R"(D:\plain.cfg)");
}

TEST_F(Fields, Browsing_for_the_configuration_file_inspects_it) {
    desktop.chosenFiles = {R"(D:\names.cfg)", std::nullopt};
    form.userClicked(form.cmdCFG);
    EXPECT_EQ(form.txtCFG.text(), R"(D:\names.cfg)");
    EXPECT_TRUE(form.definition().bCfgNamesOutput);
    EXPECT_FALSE(form.grdCNS.enabled());
    EXPECT_TRUE(changed());
    form.userClicked(form.cmdCFG);
    EXPECT_EQ(form.txtCFG.text(), R"(D:\names.cfg)");
    FileDialog expected{.kind = FileDialog::Kind::Open,
                        .title = "Open Configuration File",
                        .filter = "Config File (*.cfg)|*.cfg|Text File (*.txt)|*.txt|"
                                  "All Files (*.*)|*.*",
                        .filterIndex = 1,
                        .fileName = {},
                        .initialFolder = {},
                        .hideReadOnly = true};
    FileDialog second = expected;
    second.fileName = R"(D:\names.cfg)";
    EXPECT_THAT(desktop.fileDialogs, ElementsAre(expected, second));
}

TEST_F(Fields, Execute_checks_the_field_that_is_left_for_it_first) {
    form.userClicked(form.chkCNS); // off again
    form.userClicked(form.chkCFG);
    listRecords();
    form.userClicked(form.cmdSelectFiles[1]);
    ASSERT_TRUE(form.cmdOK.enabled());
    type(form.txtInput, R"(D:\nowhere)");
    form.userClicked(form.cmdOK);
    expectRefusal(form.txtInput, R"(The "D:\nowhere" folder does not exist.)");
    desktop.messages.clear();
    type(form.txtInput, R"(D:\in)");
    leave();
    form.userClicked(form.cmdOK);
    // Whose own checks come next.
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("Please specify a folder for the output \"Error\" file.")));
}

TEST_F(Fields, A_text_that_was_refused_is_still_asked_about_when_the_window_closes) {
    type(form.txtCNS, R"(D:\nowhere)");
    leave();
    expectRefusal(form.txtCNS, R"(The "D:\nowhere" folder does not exist.)");
    desktop.messages.clear();
    desktop.answers = {MessageAnswer::No};
    form.userClosed();
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages.front().buttons, MessageButtons::YesNo);
}

} // namespace
} // namespace tarnwick
