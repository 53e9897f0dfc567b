// What is left of the work when a file command cannot read or write its file.
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

struct FailedFileCommands : MainWorld {
    static constexpr const char* present = R"(D:\present.ini)";
    static constexpr const char* other = R"(D:\other.ini)";
    static constexpr const char* record = "Identification_Information:\r\n  Title: Lakes\r\n";

    // A definition that is open, is in its file and is remembered.
    FailedFileCommands() {
        form.show();
        listRecords("*.met");
        form.userClicked(form.chkfixdoc);
        desktop.chosenFiles = {present};
        form.mnuSaveAsINI.userClicked();
        saved = world.read(present);
        desktop.fileDialogs.clear();
    }

    void edit() { form.cboLanguage.userPicked(4); }
    void choose(std::string_view file) { desktop.chosenFiles = {std::string(file)}; }
    std::string stored() { return readStored(settings, StoredSetting::INIFileName, "none"); }

    // Only the report, and all as it was before the command.
    void expectUntouched(const BatchDefinition& before, std::string_view procedure,
                         ErrorNumber number, int lastDllError = 0) {
        ASSERT_FALSE(desktop.messages.empty());
        EXPECT_EQ(desktop.messages.back(),
                  report(procedure, static_cast<int>(number), describe(number), lastDllError));
        EXPECT_EQ(form.definition(), before);
        EXPECT_EQ(form.caption(), "Tarnwick - present.ini");
        EXPECT_EQ(form.StatusBar1.panelText(2), "present.ini");
        EXPECT_EQ(stored(), present);
        EXPECT_THAT(form.lstAvailable.items(), ElementsAre("a.met", "b.met"));
    }

    std::string saved;
};

TEST_F(FailedFileCommands, After_an_Open_that_cannot_read_its_file_all_is_as_before) {
    world.write(other, "Language=Catalan\r\n");
    const BatchDefinition before = form.definition();
    files.failAt(FileOperation::OpenForReading, 1, RunTimeError(ErrorNumber::PermissionDenied));
    choose(other);
    form.mnuOpenINI.userClicked();
    EXPECT_EQ(desktop.messages.size(), 1U);
    expectUntouched(before, "Public Sub ReadINIFile()", ErrorNumber::PermissionDenied);
    form.mnuSaveINI.userClicked();
    EXPECT_EQ(world.read(other), "Language=Catalan\r\n");
    EXPECT_EQ(world.read(present), saved);
}

TEST_F(FailedFileCommands, After_an_Open_that_breaks_off_half_way_all_is_as_before) {
    std::string text = "Language=Catalan\r\nProcess CNS=1\r\nInput Folder=D:\\empty\r\n";
    world.write(other, text.append(3'000'000, '\n'));
    const BatchDefinition before = form.definition();
    files.failAt(FileOperation::Read, 2, RunTimeError(ErrorNumber::DeviceIO));
    choose(other);
    form.mnuOpenINI.userClicked();
    expectUntouched(before, "Public Sub ReadINIFile()", ErrorNumber::DeviceIO);
    EXPECT_FALSE(form.grdCNS.enabled());
}

// Yes to the question would write INI text over the record.
TEST_F(FailedFileCommands, Open_does_not_take_a_file_that_is_no_definition) {
    world.write(R"(D:\in\a.met)", record);
    const BatchDefinition before = form.definition();
    choose(R"(D:\in\a.met)");
    form.mnuOpenINI.userClicked();
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Public Sub ReadINIFile()", 321, "Invalid file format")));
    EXPECT_EQ(form.definition(), before);
    EXPECT_EQ(form.caption(), "Tarnwick - present.ini");
    form.mnuSaveINI.userClicked();
    EXPECT_EQ(world.read(R"(D:\in\a.met)"), record);
}

TEST_F(FailedFileCommands, Changes_that_were_not_to_be_saved_for_an_Open_that_fails_still_count) {
    edit();
    type(form.txtInExt, "*.txt");
    world.write(other, record);
    choose(other);
    desktop.answers = {MessageAnswer::No, MessageAnswer::No};
    form.mnuOpenINI.userClicked();
    EXPECT_TRUE(changed());
    EXPECT_EQ(form.cboLanguage.text(), "French");
    leave(); // and a field that was being edited is still looked at
    EXPECT_THAT(form.lstAvailable.items(), ElementsAre("c.txt"));
    form.userClosed();
    EXPECT_EQ(desktop.messages.back(), saveQuestion(present));
}

TEST_F(FailedFileCommands, Save_As_that_cannot_write_keeps_the_name_and_counts_as_unsaved) {
    world.write(other, "old");
    world.makeReadOnly(other);
    choose(other);
    form.mnuSaveAsINI.userClicked();
    BatchDefinition expected = form.definition();
    EXPECT_TRUE(expected.bSettingsChanged);
    EXPECT_EQ(expected.sINIFile, present);
    expectUntouched(expected, "Public Sub SaveINIFile()", ErrorNumber::PathFileAccess, EACCES);
    EXPECT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(world.read(other), "old");
    desktop.answers = {MessageAnswer::No};
    form.userClosed();
    EXPECT_EQ(desktop.messages.back(), saveQuestion(present));
    EXPECT_EQ(stored(), present); // which the next start opens
}

TEST_F(FailedFileCommands, New_that_cannot_write_changes_nothing) {
    edit();
    type(form.txtInput, R"( D:\empty )");
    const BatchDefinition before = form.definition();
    world.write(other, "old");
    world.makeReadOnly(other);
    choose(other);
    desktop.answers = {MessageAnswer::No};
    form.mnuNewINI.userClicked();
    expectUntouched(before, "Public Sub SaveINIFile()", ErrorNumber::PathFileAccess, EACCES);
    EXPECT_THAT(desktop.messages,
                ElementsAre(saveQuestion(present), Field(&Message::title, "Tarnwick")));
    EXPECT_TRUE(form.chkfixdoc.ticked());
    EXPECT_EQ(form.txtInput.text(), R"( D:\empty )");
    leave(); // the typed folder is still due
    EXPECT_THAT(form.lstAvailable.items(), IsEmpty());
    desktop.answers = {MessageAnswer::No};
    form.userClosed();
    EXPECT_EQ(desktop.messages.back(), saveQuestion(present));
    EXPECT_EQ(world.read(present), saved);
}

TEST_F(FailedFileCommands, New_that_cannot_write_leaves_saved_changes_saved) {
    edit();
    world.write(other, "");
    world.makeReadOnly(other);
    choose(other);
    desktop.answers = {MessageAnswer::Yes};
    form.mnuNewINI.userClicked();
    EXPECT_FALSE(changed());
    EXPECT_THAT(world.read(present), HasSubstr("Language=French\r\n"));
}

TEST_F(FailedFileCommands, The_end_of_the_session_asks_for_another_file_as_well) {
    world.makeReadOnly(present);
    edit();
    desktop.answers = {MessageAnswer::Yes};
    choose(other);
    form.sessionIsEnding();
    EXPECT_THAT(desktop.fileDialogs, ElementsAre(Field(&FileDialog::title, "Save INI File As")));
    EXPECT_THAT(world.read(other), HasSubstr("Language=French\r\n"));
    EXPECT_EQ(stored(), other);
    const std::size_t shown = desktop.messages.size();
    form.sessionEnded(true);
    EXPECT_EQ(desktop.messages.size(), shown); // asked once
    EXPECT_EQ(desktop.fileDialogs.size(), 1U);
}

// A message of the session's end reaches the window while it waits for a dialog.
TEST_F(FailedFileCommands,
       The_name_given_at_the_end_of_the_session_outlasts_an_open_options_dialog) {
    world.makeReadOnly(present);
    for (const bool accepted : {false, true}) {
        edit();
        inOptions = [&](BatchDefinition& definition) {
            desktop.answers = {MessageAnswer::Yes};
            const std::string name = accepted ? R"(D:\accepted.ini)" : R"(D:\cancelled.ini)";
            world.makeReadOnly(form.definition().sINIFile);
            choose(name);
            form.sessionIsEnding();
            form.sessionEnded(false);
            EXPECT_EQ(form.definition().sINIFile, name);
            if (accepted) {
                definition.bConvertHyperlinks = true;
                definition.bSettingsChanged = true;
            }
        };
        form.mnuOptions.userClicked();
        EXPECT_EQ(form.definition().sINIFile, stored());
        EXPECT_EQ(form.definition().bConvertHyperlinks, accepted);
        EXPECT_EQ(changed(), accepted);
    }
}

TEST_F(FailedFileCommands, The_end_goes_on_asking_until_a_file_takes_the_work_or_nobody_wants_it) {
    world.write(other, "old");
    for (const bool atSessionEnd : {true, false}) {
        frmMain window(services);
        window.measured({.width = 12735, .height = 8460}, {.width = 15360, .height = 11520});
        window.show();
        window.cboLanguage.userPicked(4);
        world.makeReadOnly(present);
        world.makeReadOnly(other);
        desktop.fileDialogs.clear();
        desktop.answers = {MessageAnswer::Yes};
        const std::string third = atSessionEnd ? R"(D:\third.ini)" : R"(D:\fourth.ini)";
        desktop.chosenFiles = {other, other, third};
        if (atSessionEnd) {
            window.sessionIsEnding();
        } else {
            settings.write("Corvane", "TARNWICK", "INI File Name", present);
            window.userClosed();
        }
        EXPECT_EQ(desktop.fileDialogs.size(), 3U);
        EXPECT_THAT(world.read(third), HasSubstr("Language=French\r\n"));
        window.cboLanguage.userPicked(1);
        desktop.answers = {MessageAnswer::No};
        window.userClosed();
        settings.write("Corvane", "TARNWICK", "INI File Name", present);
    }
}

TEST_F(FailedFileCommands, Who_cancels_the_last_dialog_is_asked_no_more) {
    world.makeReadOnly(present);
    edit();
    desktop.answers = {MessageAnswer::Yes};
    desktop.chosenFiles = {std::nullopt};
    form.sessionIsEnding();
    form.sessionEnded(true);
    EXPECT_EQ(desktop.fileDialogs.size(), 1U);
    EXPECT_FALSE(form.loaded());
}

// The program opens the definition that was used last. Where that cannot be read, the window bears
// its name, but holds the defaults.
struct UnreadDefinition : MainWorld {
    static constexpr const char* last = R"(D:\last.ini)";
    static constexpr const char* definitionThere = "Language=Catalan\r\n";

    UnreadDefinition() {
        world.write(last, definitionThere);
        store(settings, StoredSetting::INIFileName, last);
        files.failAt(FileOperation::OpenForReading, 1, RunTimeError(ErrorNumber::PermissionDenied));
        form.show();
        EXPECT_EQ(form.caption(), "Tarnwick - last.ini");
    }
};

TEST_F(UnreadDefinition, Is_not_replaced_by_Save_without_a_word) {
    desktop.chosenFiles = {R"(D:\mine.ini)"};
    form.mnuSaveINI.userClicked();
    EXPECT_EQ(world.read(last), definitionThere);
    EXPECT_TRUE(world.exists(R"(D:\mine.ini)"));
    EXPECT_EQ(form.caption(), "Tarnwick - mine.ini");
    // From now on Save asks nobody.
    form.userClicked(form.chkfixdoc);
    form.mnuSaveINI.userClicked();
    EXPECT_EQ(desktop.fileDialogs.size(), 1U);
    EXPECT_THAT(world.read(R"(D:\mine.ini)"), HasSubstr("FIX DOC=1"));
}

TEST_F(UnreadDefinition, Is_replaced_where_the_user_says_so) {
    desktop.chosenFiles = {last};
    form.mnuSaveINI.userClicked();
    EXPECT_THAT(world.read(last), HasSubstr("Language=English"));
}

TEST_F(UnreadDefinition, Is_not_replaced_by_a_yes_to_the_question_either) {
    form.userClicked(form.chkfixdoc);
    desktop.answers = {MessageAnswer::Yes};
    desktop.chosenFiles = {R"(D:\mine.ini)"};
    form.mnuExit.userClicked();
    EXPECT_EQ(world.read(last), definitionThere);
    EXPECT_THAT(world.read(R"(D:\mine.ini)"), HasSubstr("FIX DOC=1"));
}

TEST_F(UnreadDefinition, Asks_for_another_file_once_who_cancels_at_the_end) {
    form.userClicked(form.chkfixdoc);
    desktop.answers = {MessageAnswer::Yes};
    desktop.chosenFiles = {std::nullopt};
    form.mnuExit.userClicked();
    EXPECT_EQ(desktop.fileDialogs.size(), 1U);
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(world.read(last), definitionThere);
}

TEST_F(UnreadDefinition, Neither_New_nor_Open_goes_on_where_no_other_file_is_named) {
    form.userClicked(form.chkfixdoc);
    for (MenuItem* const command : {&form.mnuNewINI, &form.mnuOpenINI}) {
        desktop.fileDialogs.clear();
        desktop.answers = {MessageAnswer::Yes};
        desktop.chosenFiles = {std::nullopt};
        command->userClicked();
        EXPECT_EQ(desktop.fileDialogs.size(), 1U);
        EXPECT_TRUE(changed());
        EXPECT_EQ(form.chkfixdoc.value(), 1);
    }
}

} // namespace
} // namespace tarnwick
