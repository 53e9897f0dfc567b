// New, Open, Save and Save As, and the question about unsaved changes.
#include "platform/windows_path.hpp"
#include "support/outputs.hpp"
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* filter = "INI File (*.ini)|*.ini|All Files (*.*)|*.*";

struct FileCommands : MainWorld {
    FileCommands() { form.show(); }

    std::string stored() { return readStored(settings, StoredSetting::INIFileName, "none"); }
    void edit() { form.cboLanguage.userPicked(4); }
};

TEST_F(FileCommands, New_asks_for_a_name_and_before_overwriting) {
    desktop.chosenFiles = {std::nullopt};
    form.mnuNewINI.userClicked();
    EXPECT_THAT(desktop.fileDialogs, ElementsAre(FileDialog{.kind = FileDialog::Kind::Save,
                                                            .title = "New INI File",
                                                            .filter = filter,
                                                            .filterIndex = 1,
                                                            .fileName = {},
                                                            .initialFolder = {},
                                                            .overwritePrompt = true}));
    EXPECT_EQ(stored(), "none");
    EXPECT_EQ(form.definition().sINIFile, defaultIni);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(FileCommands, Open_starts_at_the_present_file_and_wants_one_that_exists) {
    desktop.chosenFiles = {std::nullopt};
    form.mnuOpenINI.userClicked();
    EXPECT_THAT(desktop.fileDialogs, ElementsAre(FileDialog{.kind = FileDialog::Kind::Open,
                                                            .title = "Open INI File",
                                                            .filter = filter,
                                                            .filterIndex = 1,
                                                            .fileName = defaultIni,
                                                            .initialFolder = {},
                                                            .fileMustExist = true}));
}

TEST_F(FileCommands, Without_a_present_file_Open_and_Save_As_start_in_the_programs_folder) {
    BatchDefinition definition = form.definition();
    definition.sINIFile = "  ";
    form.showDefinition(definition);
    desktop.chosenFiles = {std::nullopt, std::nullopt};
    form.mnuOpenINI.userClicked();
    form.mnuSaveAsINI.userClicked();
    for (const FileDialog& dialog : desktop.fileDialogs) {
        EXPECT_EQ(dialog.fileName, "");
        EXPECT_EQ(dialog.initialFolder, "C:\\App\\");
    }
    EXPECT_EQ(desktop.fileDialogs.size(), 2U);
}

TEST_F(FileCommands, Save_As_overwrites_without_a_question) {
    world.write(R"(D:\old.ini)", "old");
    desktop.chosenFiles = {R"(D:\old.ini)"};
    edit();
    form.mnuSaveAsINI.userClicked();
    EXPECT_THAT(desktop.fileDialogs, ElementsAre(FileDialog{.kind = FileDialog::Kind::Save,
                                                            .title = "Save INI File As",
                                                            .filter = filter,
                                                            .filterIndex = 1,
                                                            .fileName = defaultIni,
                                                            .initialFolder = {}}));
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_THAT(world.read(R"(D:\old.ini)"), HasSubstr("Language=French\r\n"));
    EXPECT_EQ(stored(), R"(D:\old.ini)");
    EXPECT_EQ(form.caption(), "Tarnwick - old.ini");
    EXPECT_EQ(form.StatusBar1.panelText(2), "old.ini");
    EXPECT_FALSE(changed());
}

TEST_F(FileCommands, Save_As_that_is_cancelled_changes_nothing) {
    edit();
    desktop.chosenFiles = {std::nullopt};
    form.mnuSaveAsINI.userClicked();
    EXPECT_EQ(stored(), "none");
    EXPECT_EQ(form.definition().sINIFile, defaultIni);
    EXPECT_TRUE(changed());
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(FileCommands, Save_writes_the_present_file_without_a_dialog) {
    edit();
    form.StatusBar1.setPanelText(1, "Done!");
    form.mnuSaveINI.userClicked();
    EXPECT_THAT(desktop.fileDialogs, IsEmpty());
    EXPECT_THAT(world.read(defaultIni), HasSubstr("Language=French\r\n"));
    EXPECT_EQ(stored(), defaultIni);
    EXPECT_EQ(form.StatusBar1.panelText(1), "");
    EXPECT_FALSE(changed());
}

TEST_F(FileCommands, A_settings_store_that_cannot_be_written_does_not_keep_the_work_from_its_file) {
    const std::vector<std::pair<MenuItem*, std::string>> commands{
        {&form.mnuSaveINI, "Private Sub mnuSaveINI_Click()"},
        {&form.mnuSaveAsINI, "Private Sub mnuSaveAsINI_Click()"},
        {&form.mnuNewINI, "Private Sub mnuNewINI_Click()"}};
    settings.unwritable = true;
    for (const auto& [command, procedure] : commands) {
        const bool present = command == &form.mnuSaveINI;
        const std::string file = present ? defaultIni : R"(D:\other.ini)";
        world.write(file, "");
        type(form.txtInput, R"(D:\in)");
        leave();
        desktop.messages.clear();
        desktop.answers = {MessageAnswer::No};
        desktop.chosenFiles = {file};
        command->userClicked();
        EXPECT_EQ(desktop.messages.back(),
                  report(procedure, 75, describe(ErrorNumber::PathFileAccess)));
        EXPECT_THAT(world.read(file), HasSubstr("Input Folder=D:\\in\r\n")) << procedure;
        EXPECT_EQ(form.caption(), "Tarnwick - " + GetFileName(file));
        EXPECT_FALSE(changed());
    }
}

TEST_F(FileCommands, Save_holds_a_cell_that_is_being_edited_and_a_field_that_was_not_left) {
    type(form.txtInExt, "*.met");
    form.mnuSaveINI.userClicked();
    EXPECT_THAT(world.read(defaultIni), HasSubstr("Input File Extension=*.met\r\n"));
    click(form.grdFiles, 1, 2);
    form.txtEdit.userTyped(".log");
    form.mnuSaveINI.userClicked();
    EXPECT_THAT(world.read(defaultIni), HasSubstr("Error Extension=.log\r\n"));
    EXPECT_FALSE(form.txtEdit.visible());
    EXPECT_FALSE(changed());
}

TEST_F(FileCommands, A_saved_definition_opens_as_it_was) {
    world.makeFolder(R"(D:\xml)");
    form.userClicked(form.chkCNS);
    type(form.txtCNS, R"(D:\cns)");
    listRecords("*.met");
    click(form.grdCNS, 1, 0);
    click(form.grdFiles, 6, 3);
    form.txtEdit.userTyped(R"(D:\xml)");
    desktop.chosenFiles = {R"(D:\one.ini)", R"(D:\two.ini)", R"(D:\one.ini)"};
    form.mnuSaveAsINI.userClicked();
    const BatchDefinition saved = form.definition();
    form.mnuNewINI.userClicked();
    EXPECT_NE(form.definition(), saved);
    form.mnuOpenINI.userClicked();
    // A product without a folder comes back off.
    BatchDefinition expected = saved;
    output(expected, "Error").bBuild = false;
    output(expected, "Info_file").bBuild = false;
    EXPECT_EQ(form.definition(), expected);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(FileCommands, Open_reads_the_file_and_stores_its_name_only_at_the_end) {
    world.write(R"(D:\other.ini)", "Process CNS=1\r\nInput Folder=D:\\in\r\nProcess MP=0\r\n");
    desktop.chosenFiles = {R"(D:\other.ini)"};
    form.mnuOpenINI.userClicked();
    EXPECT_EQ(form.caption(), "Tarnwick - other.ini");
    EXPECT_EQ(stored(), "none");
    EXPECT_FALSE(changed());
    // What can be used follows the file at once.
    EXPECT_TRUE(form.grdCNS.enabled());
    EXPECT_FALSE(form.grdFiles.enabled());
    EXPECT_EQ(form.lstAvailable.items().size(), 3U);
    form.userClosed();
    EXPECT_EQ(stored(), R"(D:\other.ini)");
}

TEST_F(FileCommands, Open_keeps_what_the_file_does_not_say) {
    listRecords();
    form.userClicked(form.chkAliases); // not usable yet
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkAliases);
    type(form.txtAliases, R"(D:\aliases.txt)");
    leave();
    forgetChanges();
    world.write(R"(D:\other.ini)", "Input Folder=D:\\missing\r\n");
    desktop.chosenFiles = {R"(D:\other.ini)"};
    form.mnuOpenINI.userClicked();
    EXPECT_EQ(form.txtInput.text(), R"(D:\in)");
    EXPECT_EQ(form.txtAliases.text(), R"(D:\aliases.txt)");
    EXPECT_TRUE(form.chkAliases.ticked());
    const BatchDefinition read = form.definition();
    EXPECT_FALSE(output(read, "Error").bBuild); // all products are off, though
}

TEST_F(FileCommands, A_missing_aliases_file_comes_back_switched_off_with_its_old_text) {
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkAliases);
    type(form.txtAliases, R"(D:\aliases.txt)");
    leave();
    forgetChanges();
    world.write(R"(D:\other.ini)", "Aliases File=D:\\none.txt\r\nConfiguration File=\r\n");
    desktop.chosenFiles = {R"(D:\other.ini)"};
    form.mnuOpenINI.userClicked();
    EXPECT_FALSE(form.chkAliases.ticked());
    EXPECT_FALSE(form.txtAliases.enabled());
    EXPECT_FALSE(form.cmdAliases.enabled());
    EXPECT_EQ(form.txtAliases.text(), R"(D:\aliases.txt)");
    EXPECT_FALSE(form.chkCFG.ticked());
    EXPECT_FALSE(form.txtCFG.enabled());
}

TEST_F(FileCommands, A_configuration_file_in_the_INI_file_is_inspected) {
    world.write(R"(D:\other.ini)", "Process CNS=1\r\nConfiguration File= D:\\names.cfg \r\n"
                                   "CNS Output Folder=D:\\cns\r\nGRID_Xml=D:\\out\r\n");
    desktop.chosenFiles = {R"(D:\other.ini)"};
    form.mnuOpenINI.userClicked();
    EXPECT_TRUE(form.definition().bCfgNamesOutput);
    EXPECT_TRUE(form.chkCFG.ticked());
    EXPECT_EQ(form.txtCFG.text(), R"(D:\names.cfg)");
    EXPECT_TRUE(form.txtCFG.enabled());
    EXPECT_EQ(form.txtCNS.text(), "");
    EXPECT_FALSE(form.grdCNS.enabled());
    EXPECT_FALSE(form.grdFiles.enabled());
    const BatchDefinition read = form.definition();
    EXPECT_FALSE(output(read, "Xml").bBuild);
    EXPECT_EQ(form.grdFiles.text(6, 3), "");
    EXPECT_FALSE(changed());
}

TEST_F(FileCommands, An_INI_file_that_uses_no_configuration_file_frees_the_outputs) {
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkCFG);
    type(form.txtCFG, R"(D:\names.cfg)");
    leave();
    ASSERT_TRUE(form.definition().bCfgNamesOutput);
    forgetChanges();
    world.write(R"(D:\other.ini)", "Configuration File=D:\\none.cfg\r\n");
    desktop.chosenFiles = {R"(D:\other.ini)"};
    form.mnuOpenINI.userClicked();
    EXPECT_FALSE(form.definition().bCfgNamesOutput);
    EXPECT_TRUE(form.grdFiles.enabled());
    EXPECT_TRUE(form.grdCNS.enabled());
}

TEST_F(FileCommands, New_writes_defaults_with_the_fields_as_they_stand_before_MP_is_checked) {
    listRecords("*.met");
    form.userClicked(form.chkMP); // off
    form.userClicked(form.chkfixdoc);
    form.userClicked(form.chkCFG);
    form.cboLanguage.userPicked(4);
    click(form.grdFiles, 1, 0);
    desktop.chosenFiles = {R"(D:\new.ini)"};
    desktop.answers = {MessageAnswer::No};
    form.mnuNewINI.userClicked();
    EXPECT_EQ(world.read(R"(D:\new.ini)"), "MP EXECUTABLE=C:\\App\\mp.exe\r\n"
                                           "CNS EXECUTABLE=C:\\App\\cns.exe\r\n"
                                           "Process MP=0\r\n"
                                           "Process CNS=0\r\n"
                                           "Command Line Logging=False\r\n"
                                           "Command Line Log Filename=\r\n"
                                           "Input Folder=D:\\in\r\n"
                                           "Input File Extension=*.met\r\n"
                                           "CNS Output Folder=\r\n"
                                           "CNS Output File Extension=.cns\r\n"
                                           "Convert HyperLink To Relative Path=False\r\n"
                                           "Language=English\r\n"
                                           "FIX DOC=0\r\n"
                                           "Error Extension=.err\r\n"
                                           "Xml Extension=.xml\r\n");
    EXPECT_TRUE(form.chkMP.ticked());
    EXPECT_TRUE(form.grdFiles.enabled());
    EXPECT_FALSE(form.chkfixdoc.ticked());
    EXPECT_FALSE(form.chkCFG.ticked());
    EXPECT_FALSE(form.txtCFG.enabled());
    EXPECT_FALSE(form.cmdCFG.enabled());
    EXPECT_EQ(form.cboLanguage.text(), "English");
    EXPECT_EQ(stored(), R"(D:\new.ini)");
    EXPECT_EQ(form.caption(), "Tarnwick - new.ini");
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
    // MP was checked by the command, and that is no change.
    EXPECT_FALSE(changed());
    form.userClosed();
    EXPECT_EQ(desktop.messages.size(), 1U);
}

TEST_F(FileCommands, New_lists_the_folder_that_was_being_typed) {
    world.write(R"(D:\other\z.met)", "");
    desktop.answers = {MessageAnswer::No};
    desktop.chosenFiles = {R"(D:\new.ini)"};
    type(form.txtInput, R"(D:\other)");
    form.mnuNewINI.userClicked();
    EXPECT_EQ(form.lstAvailable.items(), std::vector<std::string>{"z.met"});
}

TEST_F(FileCommands, New_lists_a_folder_that_was_typed_with_blanks_around_it_and_names_it_without) {
    type(form.txtInput, R"(  D:\in )");
    desktop.answers = {MessageAnswer::No};
    desktop.chosenFiles = {R"(D:\new.ini)"};
    form.mnuNewINI.userClicked();
    EXPECT_EQ(form.txtInput.text(), R"(D:\in)");
    EXPECT_EQ(form.lstAvailable.items().size(), 3U);
    EXPECT_THAT(world.read(R"(D:\new.ini)"), HasSubstr("Input Folder=D:\\in\r\n"));
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
}

TEST_F(FileCommands, A_typed_folder_that_New_and_Open_leave_in_its_field_is_checked_on_leaving_it) {
    world.write(R"(D:\few.ini)", "Language=French\r\n");
    for (MenuItem* const command : {&form.mnuNewINI, &form.mnuOpenINI}) {
        type(form.txtInput, R"(D:\nowhere)");
        desktop.messages.clear();
        desktop.answers = {MessageAnswer::No};
        desktop.chosenFiles = {command == &form.mnuNewINI ? R"(D:\new.ini)" : R"(D:\few.ini)"};
        command->userClicked();
        EXPECT_EQ(form.txtInput.text(), R"(D:\nowhere)");
        leave();
        EXPECT_EQ(desktop.messages.back(), warning(R"(The "D:\nowhere" folder does not exist.)"));
    }
}

TEST_F(FileCommands,
       A_folder_that_was_read_takes_the_place_of_the_typed_one_and_is_not_listed_again) {
    world.write(R"(D:\other.ini)", "Input Folder=D:\\in\r\n");
    type(form.txtInput, R"(D:\nowhere)");
    desktop.answers = {MessageAnswer::No};
    desktop.chosenFiles = {R"(D:\other.ini)"};
    form.mnuOpenINI.userClicked();
    leave();
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
    EXPECT_FALSE(changed());
}

TEST_F(FileCommands, New_frees_the_outputs_from_the_configuration_file) {
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkCFG);
    type(form.txtCFG, R"(D:\names.cfg)");
    leave();
    desktop.chosenFiles = {R"(D:\new.ini)"};
    desktop.answers = {MessageAnswer::No};
    form.mnuNewINI.userClicked();
    EXPECT_FALSE(form.definition().bCfgNamesOutput);
    EXPECT_TRUE(form.grdFiles.enabled());
    EXPECT_TRUE(form.txtCNS.enabled());
    EXPECT_FALSE(changed());
}

struct MenuCommand {
    const char* name;
    MenuItem frmMain::* item;

    friend std::ostream& operator<<(std::ostream& out, const MenuCommand& command) {
        return out << command.name;
    }
};

struct QuestionedCommand : FileCommands, testing::WithParamInterface<MenuCommand> {
    MenuItem& command() { return form.*GetParam().item; }
};

TEST_P(QuestionedCommand, Unsaved_changes_are_saved_on_Yes_before_the_dialog) {
    edit();
    desktop.answers = {MessageAnswer::Yes};
    desktop.chosenFiles = {std::nullopt};
    command().userClicked();
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
    EXPECT_THAT(world.read(defaultIni), HasSubstr("Language=French\r\n"));
    EXPECT_FALSE(changed());
}

TEST_P(QuestionedCommand, After_No_and_a_cancelled_dialog_the_edits_stay_and_count_as_saved) {
    edit();
    desktop.answers = {MessageAnswer::No};
    desktop.chosenFiles = {std::nullopt};
    command().userClicked();
    EXPECT_FALSE(world.exists(defaultIni));
    EXPECT_EQ(form.cboLanguage.text(), "French");
    EXPECT_FALSE(changed());
    form.userClosed();
    EXPECT_EQ(desktop.messages.size(), 1U);
}

// Going on would lose what the user has just asked to keep.
TEST_P(QuestionedCommand, Changes_that_cannot_be_saved_stop_the_command_and_are_asked_about_again) {
    edit();
    world.write(defaultIni, "");
    world.makeReadOnly(defaultIni);
    desktop.answers = {MessageAnswer::Yes, MessageAnswer::No};
    command().userClicked();
    EXPECT_THAT(desktop.messages,
                ElementsAre(saveQuestion(defaultIni),
                            report("Public Sub SaveINIFile()", 75,
                                   describe(ErrorNumber::PathFileAccess), EACCES)));
    EXPECT_THAT(desktop.fileDialogs, IsEmpty());
    EXPECT_TRUE(changed());
    form.userClosed();
    EXPECT_EQ(desktop.messages.back(), saveQuestion(defaultIni));
}

TEST_P(QuestionedCommand, A_field_that_cannot_be_saved_stops_the_command_as_well) {
    type(form.txtInExt, "*.met");
    world.write(defaultIni, "");
    world.makeReadOnly(defaultIni);
    desktop.answers = {MessageAnswer::Yes};
    command().userClicked();
    EXPECT_THAT(desktop.fileDialogs, IsEmpty());
    EXPECT_TRUE(changed());
}

TEST_P(QuestionedCommand, Without_changes_nothing_is_asked) {
    form.StatusBar1.setPanelText(1, "Done!");
    desktop.chosenFiles = {std::nullopt};
    command().userClicked();
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_EQ(form.StatusBar1.panelText(1), "");
}

TEST_P(QuestionedCommand, A_cell_or_field_that_is_being_edited_is_a_change) {
    click(form.grdFiles, 1, 2);
    form.txtEdit.userTyped("x");
    desktop.answers = {MessageAnswer::No, MessageAnswer::No};
    desktop.chosenFiles = {std::nullopt, std::nullopt};
    command().userClicked();
    EXPECT_EQ(form.grdFiles.text(1, 2), "x");
    type(form.txtInput, "D:\\");
    command().userClicked();
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni), saveQuestion(defaultIni)));
    form.userClosed(); // both were answered
    EXPECT_EQ(desktop.messages.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(New_and_Open, QuestionedCommand,
                         testing::Values(MenuCommand{"New", &frmMain::mnuNewINI},
                                         MenuCommand{"Open", &frmMain::mnuOpenINI}),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(FileCommands, An_edit_that_is_going_on_is_kept_by_Options_and_About_and_the_CNS_folder) {
    form.userClicked(form.chkCNS);
    const auto typeExtension = [this](std::string_view text) {
        click(form.grdFiles, 1, 2);
        form.txtEdit.selectAll();
        form.txtEdit.userTyped(text);
    };
    typeExtension(".one");
    inOptions = [](BatchDefinition& definition) {
        EXPECT_EQ(output(definition, "Error").sExtension, ".one");
    };
    form.mnuOptions.userClicked();
    EXPECT_EQ(form.grdFiles.text(1, 2), ".one");
    typeExtension(".two");
    form.mnuAbout.userClicked();
    EXPECT_EQ(form.grdFiles.text(1, 2), ".two");
    typeExtension(".three");
    form.txtCNS.userTyped("D"); // without the focus, which would keep the edit by itself
    EXPECT_EQ(form.grdFiles.text(1, 2), ".three");
    EXPECT_FALSE(form.txtEdit.visible());
}

TEST_F(FileCommands, Open_puts_both_grids_at_their_first_cell_of_data) {
    world.write(R"(D:\a.ini)", "Process CNS=1\r\n");
    form.userClicked(form.chkCNS);
    click(form.grdFiles, 4, 1);
    click(form.grdCNS, 2, 1);
    forgetChanges();
    form.grdFiles.setCurrent({.row = 4, .column = 1});
    form.grdCNS.setCurrent({.row = 2, .column = 1});
    desktop.chosenFiles = {R"(D:\a.ini)"};
    form.mnuOpenINI.userClicked();
    for (const Grid* const grid : {&form.grdFiles, &form.grdCNS}) {
        EXPECT_EQ(grid->row(), 1) << grid->name();
        EXPECT_EQ(grid->column(), 0) << grid->name();
    }
}

TEST_F(FileCommands, A_typed_language_looks_at_Execute_anew_and_a_picked_one_does_not) {
    ASSERT_FALSE(form.cmdOK.enabled());
    form.cmdOK.setEnabled(true);
    form.cboLanguage.userPicked(1);
    EXPECT_TRUE(form.cmdOK.enabled());
    form.cboLanguage.userChangedText("Welsh");
    EXPECT_FALSE(form.cmdOK.enabled());
}

TEST_F(FileCommands, Options_gets_the_definition_as_the_window_shows_it) {
    form.StatusBar1.setPanelText(1, "Done!");
    form.userClicked(form.chkCNS);
    form.StatusBar1.setPanelText(1, "Done!");
    inOptions = [](BatchDefinition& definition) {
        EXPECT_EQ(definition.iProcessCNS, 1);
        definition.sCNSExecutable = "D:\\cns.exe";
    };
    form.mnuOptions.userClicked();
    EXPECT_EQ(optionsShown, 1);
    EXPECT_EQ(form.definition().sCNSExecutable, "D:\\cns.exe");
    EXPECT_EQ(form.StatusBar1.panelText(1), "");
}

TEST_F(FileCommands, Picking_or_typing_a_language_is_a_change) {
    form.cboLanguage.userPicked(1);
    EXPECT_EQ(form.definition().sLanguage, "Spanish");
    EXPECT_TRUE(changed());
    forgetChanges();
    form.cboLanguage.userChangedText("Welsh");
    EXPECT_EQ(form.definition().sLanguage, "Welsh");
    EXPECT_TRUE(changed());
}

TEST_F(FileCommands, Help_opens_the_pages_and_the_help_file) {
    world.write(R"(C:\App\Tarnwick.chm)", "");
    form.mnuHelpCNS.userClicked();
    form.mnuHelpMP.userClicked();
    form.mnuHelpTarnwick.userClicked();
    EXPECT_THAT(desktop.opened,
                ElementsAre(ScriptedDesktop::Opened{"https://corvane.example/cns/", "C:\\"},
                            ScriptedDesktop::Opened{"https://corvane.example/mp/", "C:\\"},
                            ScriptedDesktop::Opened{R"(C:\App\Tarnwick.chm)", "C:\\"}));
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(FileCommands, A_missing_help_file_gives_a_warning) {
    form.mnuHelpTarnwick.userClicked();
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The help file \"C:\\App\\Tarnwick.chm\" does not exist.")));
    EXPECT_THAT(desktop.opened, IsEmpty());
}

TEST_F(FileCommands, About_is_shown_after_the_status_is_cleared) {
    form.StatusBar1.setPanelText(1, "Done!");
    form.mnuAbout.userClicked();
    EXPECT_EQ(aboutShown, 1);
    EXPECT_EQ(form.StatusBar1.panelText(1), "");
}

} // namespace
} // namespace tarnwick
