// From the first moment to the window, and how the program ends.
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StartUpWindow : public MainWorld {
  protected:
    // The user answers the question, before which the settings have been stored.
    void answerNoWithSettingsStored() {
        desktop.answers = {MessageAnswer::No};
        desktop.whileShown = [this](const Message&) {
            EXPECT_EQ(readStored(settings, StoredSetting::INIFileName, ""), defaultIni);
            EXPECT_EQ(readStored(settings, StoredSetting::MPExecutable, ""), R"(C:\App\mp.exe)");
            EXPECT_EQ(readStored(settings, StoredSetting::CNSExecutable, ""), R"(C:\App\cns.exe)");
        };
    }
};

constexpr const char* missingMP = "Please specify the MP executable location.";
constexpr const char* missingCNS = "Please specify the CNS executable location.";

TEST_F(StartUpWindow, At_first_MP_is_ticked_CNS_is_not_and_the_fields_are_empty) {
    form.show();
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(form.chkMP.value(), 1);
    EXPECT_EQ(form.chkCNS.value(), 0);
    EXPECT_EQ(form.chkfixdoc.value(), 0);
    EXPECT_EQ(form.chkAliases.value(), 0);
    EXPECT_EQ(form.chkCFG.value(), 0);
    EXPECT_EQ(form.txtCNSExt.text(), ".cns");
    EXPECT_EQ(form.txtInExt.hint(), "*.met;*.txt");
    for (const TextBox* const field :
         {&form.txtInput, &form.txtInExt, &form.txtCNS, &form.txtAliases, &form.txtCFG}) {
        EXPECT_EQ(field->text(), "") << field->name();
    }
    EXPECT_EQ(form.cboLanguage.text(), "English");
    EXPECT_THAT(form.cboLanguage.items(),
                ElementsAre("English", "Spanish", "Catalan", "Indonesian", "French"));
    EXPECT_EQ(form.lblCNS.caption(), "CNS &output folder:");
    EXPECT_FALSE(form.cmdOK.enabled());
    EXPECT_FALSE(form.cmdCreateBatFile.enabled());
    EXPECT_FALSE(changed());
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_TRUE(form.loaded());
}

TEST_F(StartUpWindow, The_window_has_its_size_and_stands_in_the_middle_of_the_screen) {
    form.measured({.width = 9000, .height = 6000}, {.width = 20000, .height = 10000});
    form.show();
    EXPECT_EQ(form.window(), (Bounds{.left = 3632, .top = 770, .width = 12735, .height = 8460}));
}

TEST_F(StartUpWindow, Caption_and_second_panel_name_the_INI_file) {
    EXPECT_EQ(form.caption(), "Tarnwick");
    store(settings, StoredSetting::INIFileName, R"(D:\work\last.ini)");
    form.show();
    EXPECT_EQ(form.caption(), "Tarnwick - last.ini");
    EXPECT_EQ(form.StatusBar1.panelText(2), "last.ini");
    EXPECT_EQ(form.StatusBar1.panelText(1), "");
}

TEST_F(StartUpWindow, A_vanished_INI_file_leaves_the_defaults) {
    world.write(defaultIni, "Process CNS=1\r\n");
    store(settings, StoredSetting::INIFileName, R"(D:\work\gone.ini)");
    form.show();
    EXPECT_EQ(form.caption(), "Tarnwick - gone.ini");
    EXPECT_EQ(form.definition().sINIFile, R"(D:\work\gone.ini)");
    EXPECT_EQ(form.chkCNS.value(), 0);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(StartUpWindow, The_stored_INI_file_is_read_and_the_window_follows_it) {
    world.write(R"(D:\last.ini)", "Process MP=0\r\nProcess CNS=1\r\nInput Folder=D:\\in\r\n"
                                  "Input File Extension=*.met\r\nCNS Output Folder=D:\\cns\r\n"
                                  "Aliases File=D:\\aliases.txt\r\nFIX DOC=1\r\nLanguage=French\r\n"
                                  "GRID_Leftovers=D:\\out\r\n");
    store(settings, StoredSetting::INIFileName, R"(D:\last.ini)");
    form.show();
    EXPECT_FALSE(form.chkMP.ticked());
    EXPECT_TRUE(form.chkCNS.ticked());
    EXPECT_THAT(form.lstAvailable.items(), ElementsAre("a.met", "b.met"));
    EXPECT_FALSE(form.cmdSelectFiles[0].enabled());
    EXPECT_TRUE(form.cmdSelectFiles[1].enabled());
    EXPECT_TRUE(form.txtAliases.enabled());
    EXPECT_TRUE(form.grdCNS.enabled());
    EXPECT_FALSE(form.grdFiles.enabled());
    EXPECT_EQ(form.chkfixdoc.value(), 1);
    EXPECT_EQ(form.cboLanguage.text(), "French");
    EXPECT_EQ(form.grdCNS.text(2, 3), R"(D:\out)");
    EXPECT_FALSE(changed());
}

TEST_F(StartUpWindow, A_read_only_INI_file_is_read_and_cannot_be_saved) {
    world.write(defaultIni, "Language=Catalan\r\n");
    world.makeReadOnly(defaultIni);
    form.show();
    EXPECT_EQ(form.cboLanguage.text(), "Catalan");
    form.cboLanguage.userPicked(1);
    form.mnuSaveINI.userClicked();
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Public Sub SaveINIFile()", 75,
                                   describe(ErrorNumber::PathFileAccess), EACCES)));
    EXPECT_TRUE(changed());
    EXPECT_EQ(world.read(defaultIni), "Language=Catalan\r\n");
    EXPECT_EQ(form.caption(), "Tarnwick - TARNWICK.ini");
}

TEST_F(StartUpWindow, A_tool_beside_the_program_wins_and_is_what_is_stored_at_the_end) {
    world.write(R"(D:\mp.exe)", "");
    store(settings, StoredSetting::MPExecutable, R"(D:\mp.exe)");
    form.show();
    EXPECT_EQ(form.definition().sMPExecutable, R"(C:\App\mp.exe)");
    form.userClosed();
    EXPECT_EQ(readStored(settings, StoredSetting::MPExecutable, ""), R"(C:\App\mp.exe)");
}

TEST_F(StartUpWindow, The_locations_in_the_INI_file_win_over_the_stored_ones) {
    world.files().remove(R"(C:\App\mp.exe)");
    for (const char* const tool :
         {R"(D:\stored\mp.exe)", R"(D:\ini\mp.exe)", R"(D:\ini\cns.exe)"}) {
        world.write(tool, "");
    }
    store(settings, StoredSetting::MPExecutable, R"(D:\stored\mp.exe)");
    world.write(defaultIni, "MP EXECUTABLE=D:\\ini\\mp.exe\r\nCNS EXECUTABLE=D:\\ini\\cns.exe\r\n");
    form.show();
    EXPECT_EQ(form.definition().sMPExecutable, R"(D:\ini\mp.exe)");
    EXPECT_EQ(form.definition().sCNSExecutable, R"(D:\ini\cns.exe)");
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(StartUpWindow, A_stored_location_serves_where_no_tool_is_beside_the_program) {
    world.files().remove(R"(C:\App\mp.exe)");
    world.write(R"(D:\stored\mp.exe)", "");
    store(settings, StoredSetting::MPExecutable, R"(D:\stored\mp.exe)");
    form.show();
    EXPECT_EQ(form.definition().sMPExecutable, R"(D:\stored\mp.exe)");
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(StartUpWindow, The_tools_are_looked_for_before_the_window_is_given_its_name) {
    world.files().remove(R"(C:\App\mp.exe)");
    inOptions = [this](BatchDefinition& definition) {
        EXPECT_EQ(form.caption(), "Tarnwick");
        EXPECT_EQ(form.StatusBar1.panelText(2), "");
        definition.sMPExecutable = R"(C:\App\cns.exe)"; // any file
    };
    form.show();
    EXPECT_EQ(optionsShown, 1);
    EXPECT_EQ(form.caption(), "Tarnwick - TARNWICK.ini");
}

struct MissingTools {
    bool mp;
    bool cns;
    std::vector<std::string> asked; // while nothing is given

    friend std::ostream& operator<<(std::ostream& out, const MissingTools& missing) {
        return out << (missing.mp ? "MP" : "") << (missing.mp && missing.cns ? "_and_" : "")
                   << (missing.cns ? "CNS" : "");
    }
};

class StartUpWithoutTools : public MainWorld, public testing::WithParamInterface<MissingTools> {
  protected:
    StartUpWithoutTools() {
        world.write(defaultIni, std::string("Process MP=") + (GetParam().mp ? "1" : "0") +
                                    "\r\nProcess CNS=" + (GetParam().cns ? "1" : "0") + "\r\n");
        world.files().remove(R"(C:\App\mp.exe)");
        world.files().remove(R"(C:\App\cns.exe)");
        world.write(R"(D:\tools\mp.exe)", "");
        world.write(R"(D:\tools\cns.exe)", "");
        for (const std::string& text : GetParam().asked) {
            expected.push_back(warning(text));
        }
    }
    std::vector<Message> expected;
};

TEST_P(StartUpWithoutTools, The_program_ends_at_once_where_the_options_do_not_give_the_tool) {
    form.show();
    EXPECT_FALSE(form.visible());
    EXPECT_FALSE(form.loaded());
    // The first missing tool ends it; no second one is asked for.
    EXPECT_THAT(desktop.messages, ElementsAre(expected.front()));
    EXPECT_EQ(optionsShown, 1);
    EXPECT_EQ(readStored(settings, StoredSetting::INIFileName, "none"), "none");
}

TEST_P(StartUpWithoutTools, The_window_comes_up_once_the_options_have_given_every_tool) {
    inOptions = [this](BatchDefinition& definition) {
        EXPECT_EQ(definition.iProcessMP, GetParam().mp ? 1 : 0);
        EXPECT_EQ(definition.iProcessCNS, GetParam().cns ? 1 : 0);
        std::string& tool = desktop.messages.back().text == missingMP ? definition.sMPExecutable
                                                                      : definition.sCNSExecutable;
        EXPECT_EQ(tool, "");
        tool = &tool == &definition.sMPExecutable ? R"(D:\tools\mp.exe)" : R"(D:\tools\cns.exe)";
        definition.bSettingsChanged = true;
    };
    form.show();
    EXPECT_TRUE(form.visible());
    EXPECT_TRUE(form.loaded());
    EXPECT_EQ(desktop.messages, expected);
    EXPECT_FALSE(changed());
}

INSTANTIATE_TEST_SUITE_P(Both_or_one, StartUpWithoutTools,
                         testing::Values(MissingTools{true, true, {missingMP, missingCNS}},
                                         MissingTools{false, true, {missingCNS}},
                                         MissingTools{true, false, {missingMP}}),
                         testing::PrintToStringParamName());

TEST_F(StartUpWindow, With_neither_tool_to_run_none_is_missing) {
    world.write(defaultIni, "Process MP=0\r\n");
    world.files().remove(R"(C:\App\mp.exe)");
    world.files().remove(R"(C:\App\cns.exe)");
    form.show();
    EXPECT_TRUE(form.visible());
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(StartUpWindow, With_MP_there_and_CNS_missing_only_CNS_is_asked_for) {
    world.write(defaultIni, "Process CNS=1\r\n");
    world.files().remove(R"(C:\App\cns.exe)");
    form.show();
    EXPECT_FALSE(form.loaded());
    EXPECT_THAT(desktop.messages, ElementsAre(warning(missingCNS)));
}

TEST_F(StartUpWindow, An_empty_or_wrong_TEMP_puts_temporary_files_in_the_programs_folder) {
    for (const char* const temp : {R"(D:\nowhere)", "", "  "}) {
        process.variables["TEMP"] = temp;
        frmMain window(services);
        window.show();
        EXPECT_EQ(window.definition().sTempFolder, R"(C:\App\)") << temp;
    }
    process.variables.erase("TEMP");
    form.show();
    EXPECT_EQ(form.definition().sTempFolder, R"(C:\App\)");
}

TEST_F(StartUpWindow, Closing_stores_the_INI_file_and_the_tools_and_asks_nothing) {
    form.show();
    form.userClicked(form.cmdCancel);
    EXPECT_FALSE(form.visible());
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(readStored(settings, StoredSetting::INIFileName, ""), defaultIni);
    EXPECT_EQ(readStored(settings, StoredSetting::MPExecutable, ""), R"(C:\App\mp.exe)");
    EXPECT_EQ(readStored(settings, StoredSetting::CNSExecutable, ""), R"(C:\App\cns.exe)");
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_FALSE(world.exists(defaultIni));
}

// It would cost a long selection, which nobody asks about.
TEST_F(StartUpWindow, Escape_does_nothing_wherever_the_focus_is_not_even_on_Close) {
    form.show();
    for (Control* const control : std::initializer_list<Control*>{
             &form.txtInput, &form.grdFiles, &form.cboLanguage, &form.cmdCancel}) {
        form.userMovedFocus(*control);
        ASSERT_EQ(form.focused(), control);
        form.userPressedEscape();
        EXPECT_TRUE(form.visible()) << control->name();
    }
    EXPECT_TRUE(form.cmdCancel.wantsKey(Key::escape)); // or the system would click it
}

TEST_F(StartUpWindow, Closing_with_changes_saves_them_on_Yes) {
    form.show();
    form.cboLanguage.userPicked(4);
    desktop.answers = {MessageAnswer::Yes};
    form.mnuExit.userClicked();
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
    EXPECT_THAT(world.read(defaultIni), testing::HasSubstr("Language=French\r\n"));
    EXPECT_FALSE(form.loaded());
}

TEST_F(StartUpWindow, Closing_with_changes_drops_them_on_No_and_cannot_be_held_up) {
    form.show();
    form.cboLanguage.userPicked(4);
    desktop.answers = {MessageAnswer::No};
    form.userClosed();
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
    EXPECT_FALSE(world.exists(defaultIni));
    EXPECT_FALSE(form.visible());
    EXPECT_FALSE(form.loaded());
}

TEST_F(StartUpWindow, The_settings_are_stored_before_the_question_comes) {
    form.show();
    form.cboLanguage.userPicked(4);
    answerNoWithSettingsStored();
    form.userClosed();
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
}

TEST_F(StartUpWindow, The_end_of_the_session_stores_before_it_asks) {
    form.show();
    form.cboLanguage.userPicked(4);
    answerNoWithSettingsStored();
    form.sessionIsEnding();
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
}

TEST_F(StartUpWindow, The_end_of_the_session_asks_while_there_is_time) {
    for (const MessageAnswer answer : {MessageAnswer::Yes, MessageAnswer::No}) {
        frmMain window(services);
        desktop.messages.clear();
        desktop.answers = {answer};
        window.measured({.width = 12735, .height = 8460}, {.width = 15360, .height = 11520});
        window.show();
        settings = {};
        window.cboLanguage.userPicked(answer == MessageAnswer::Yes ? 4 : 1);
        window.sessionIsEnding();
        EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
        EXPECT_THAT(world.read(defaultIni), testing::HasSubstr("Language=French\r\n"));
        window.sessionEnded(true);
        EXPECT_EQ(desktop.messages.size(), 1U); // asked once
        EXPECT_EQ(readStored(settings, StoredSetting::INIFileName, "none"), defaultIni);
        EXPECT_FALSE(window.loaded());
    }
}

TEST_F(StartUpWindow, A_session_that_goes_on_after_all_leaves_the_window_and_its_question) {
    form.show();
    form.cboLanguage.userPicked(4);
    desktop.answers = {MessageAnswer::No, MessageAnswer::No};
    form.sessionIsEnding();
    form.sessionEnded(false);
    EXPECT_TRUE(form.visible());
    EXPECT_TRUE(changed());
    form.userClosed();
    EXPECT_EQ(desktop.messages.size(), 2U);
}

TEST_F(StartUpWindow, What_is_changed_after_the_question_of_the_sessions_end_is_asked_about_again) {
    const std::vector<std::function<void(frmMain&)>> changes{
        [](frmMain& window) { window.cboLanguage.userPicked(1); },
        [](frmMain& window) {
            window.userMovedFocus(window.txtInput);
            window.txtInput.userTyped("D");
        },
        [](frmMain& window) {
            window.grdFiles.setCurrent({.row = 1, .column = 2});
            window.grdFiles.userTyped('x');
            EXPECT_TRUE(window.txtEdit.visible());
        },
        [](frmMain& window) { window.mnuOptions.userClicked(); }};
    inOptions = [](BatchDefinition& definition) { definition.bSettingsChanged = true; };
    for (std::size_t at = 0; at < changes.size(); ++at) {
        if (world.exists(defaultIni)) { // the defaults are to be edited each time
            world.files().remove(defaultIni);
        }
        frmMain window(services);
        window.measured({.width = 12735, .height = 8460}, {.width = 15360, .height = 11520});
        window.show();
        desktop.messages.clear();
        desktop.answers = {MessageAnswer::Yes, MessageAnswer::No};
        window.cboLanguage.userPicked(4);
        window.sessionIsEnding();
        changes[at](window);
        window.sessionEnded(true);
        EXPECT_THAT(desktop.messages,
                    ElementsAre(saveQuestion(defaultIni), saveQuestion(defaultIni)))
            << at;
    }
}

TEST_F(StartUpWindow, The_session_that_ends_while_closing_asks_does_not_ask_once_more) {
    form.show();
    form.cboLanguage.userPicked(4);
    desktop.answers = {MessageAnswer::No};
    desktop.whileShown = [this](const Message&) { form.sessionIsEnding(); };
    form.userClosed();
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
    EXPECT_FALSE(form.visible());
}

TEST_F(StartUpWindow, A_view_that_fails_is_reported_and_ends_the_window_as_closing_does) {
    form.show();
    form.cboLanguage.userPicked(4);
    desktop.answers = {MessageAnswer::Yes};
    EXPECT_TRUE(form.viewFailed(std::make_exception_ptr(RunTimeError(ErrorNumber::DeviceIO))));
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub Form_Load()", 57, describe(ErrorNumber::DeviceIO)),
                            saveQuestion(defaultIni)));
    EXPECT_THAT(world.read(defaultIni), testing::HasSubstr("Language=French\r\n"));
    EXPECT_EQ(readStored(settings, StoredSetting::INIFileName, ""), defaultIni);
    EXPECT_FALSE(form.visible());
    // Nobody is there any more to deal with another one.
    EXPECT_FALSE(form.viewFailed(std::make_exception_ptr(RunTimeError(ErrorNumber::DeviceIO))));
}

TEST_F(StartUpWindow, Closing_counts_an_edit_that_is_still_going_on) {
    form.show();
    click(form.grdFiles, 6, 2);
    form.txtEdit.userSelected(0, 4);
    form.txtEdit.userTyped(".x");
    desktop.answers = {MessageAnswer::Yes};
    form.userClosed();
    EXPECT_THAT(world.read(defaultIni), testing::HasSubstr("Xml Extension=.x\r\n"));
}

TEST_F(StartUpWindow, Closing_counts_a_field_that_was_not_left_and_checks_it_no_more) {
    form.show();
    type(form.txtInput, R"(D:\nowhere)");
    desktop.answers = {MessageAnswer::Yes};
    form.userClicked(form.cmdCancel);
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
    EXPECT_THAT(world.read(defaultIni), testing::HasSubstr("Input Folder=D:\\nowhere\r\n"));
}

TEST_F(StartUpWindow, Closing_asks_for_another_file_where_the_changes_cannot_be_written) {
    world.write(defaultIni, "Language=Catalan\r\n");
    world.makeReadOnly(defaultIni);
    form.show();
    form.cboLanguage.userPicked(4);
    desktop.answers = {MessageAnswer::Yes};
    desktop.chosenFiles = {R"(D:\kept.ini)"};
    form.userClosed();
    EXPECT_THAT(desktop.fileDialogs,
                ElementsAre(testing::Field(&FileDialog::title, "Save INI File As")));
    EXPECT_THAT(world.read(R"(D:\kept.ini)"), testing::HasSubstr("Language=French\r\n"));
    EXPECT_EQ(world.read(defaultIni), "Language=Catalan\r\n");
    EXPECT_EQ(settings.read("Corvane", "TARNWICK", "INI File Name", ""), R"(D:\kept.ini)");
    EXPECT_FALSE(form.loaded());
}

TEST_F(StartUpWindow, Closing_ends_all_the_same_when_no_other_file_is_chosen) {
    world.write(defaultIni, "");
    world.makeReadOnly(defaultIni);
    form.show();
    form.cboLanguage.userPicked(4);
    desktop.answers = {MessageAnswer::Yes};
    desktop.chosenFiles = {std::nullopt};
    form.userClosed();
    EXPECT_FALSE(form.loaded());
}

TEST_F(StartUpWindow, A_settings_store_that_cannot_be_written_does_not_cost_the_question) {
    form.show();
    form.cboLanguage.userPicked(4);
    settings.unwritable = true;
    desktop.answers = {MessageAnswer::Yes};
    form.userClosed();
    EXPECT_THAT(desktop.messages, ElementsAre(report("Private Sub Form_Unload(Cancel As Integer)",
                                                     75, describe(ErrorNumber::PathFileAccess)),
                                              saveQuestion(defaultIni)));
    EXPECT_TRUE(world.exists(defaultIni));
    EXPECT_FALSE(form.loaded());
}

TEST_F(StartUpWindow, What_was_read_of_a_file_that_breaks_off_shows_in_the_window) {
    world.write(defaultIni, "Language=French\r\nProcess CNS=1\r\n" + std::string(3'000'000, '\n'));
    files.failAt(FileOperation::Read, 2, RunTimeError(ErrorNumber::DeviceIO));
    form.show();
    EXPECT_THAT(desktop.messages, ElementsAre(report("Public Sub ReadINIFile()", 57,
                                                     describe(ErrorNumber::DeviceIO))));
    EXPECT_EQ(form.cboLanguage.text(), "French");
    EXPECT_TRUE(form.grdCNS.enabled());
}

TEST_F(StartUpWindow, A_failing_start_up_is_reported_and_the_window_comes_up) {
    services.showOptions = [](BatchDefinition&) { throw RunTimeError(ErrorNumber::DiskFull); };
    world.files().remove(R"(C:\App\mp.exe)");
    frmMain failing(services);
    failing.measured({.width = 12735, .height = 8460}, {.width = 15360, .height = 11520});
    failing.show();
    EXPECT_THAT(desktop.messages, ElementsAre(warning("Please specify the MP executable location."),
                                              report("Private Sub Form_Load()", 61,
                                                     describe(ErrorNumber::DiskFull))));
}

TEST_F(StartUpWindow, A_temporary_folder_that_has_no_name_is_told_once) {
    process.variables["TEMP"] = R"(C:\<U+0416>)";
    form.show();
    EXPECT_THAT(desktop.messages, testing::ElementsAre(warning(
                                      "The path \"C:\\<U+0416>\" is left out: its name has no "
                                      "place in the system's code page.")));
}

} // namespace
} // namespace tarnwick
