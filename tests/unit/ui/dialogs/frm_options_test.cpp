// Loading, browsing, enabling and cancelling.
#include "support/ui/scripted_presenter.hpp"
#include "unit/ui/dialogs/options_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Options : OptionsWorld {};

TEST_F(Options, Its_captions_are_those_of_the_form) {
    EXPECT_EQ(form.name(), "frmOptions");
    EXPECT_EQ(form.caption(), "Options");
    EXPECT_EQ(form.fraFile.caption(), "File locations");
    EXPECT_EQ(form.lblMPEXE.caption(), "&MP executable:");
    EXPECT_EQ(form.cmdMPEXE.caption(), "Browse...");
    EXPECT_EQ(form.lblCNS.caption(), "&CNS executable:");
    EXPECT_EQ(form.cmdCNS.caption(), "Browse...");
    EXPECT_EQ(form.chkCmdLogging.caption(), "&Command line filename:");
    EXPECT_EQ(form.cmdCmdFile.caption(), "Browse...");
    EXPECT_EQ(form.fraHyperlinks.caption(), "Hyperlinks");
    EXPECT_EQ(form.chkRelative.caption(), "Convert HTTP hyperlinks to relative paths");
    EXPECT_EQ(form.cmdOK.caption(), "OK");
    EXPECT_EQ(form.cmdCancel.caption(), "Cancel");
    EXPECT_TRUE(form.cmdOK.isDefault());
    EXPECT_TRUE(form.cmdCancel.isCancel());
}

TEST_F(Options, Loading_shows_the_definition) {
    definition.sCommandLineLogFile = "run.log";
    form.show();
    EXPECT_EQ(form.txtMPEXE.text(), "C:\\App\\mp.exe");
    EXPECT_EQ(form.txtCNS.text(), "C:\\App\\cns.exe");
    EXPECT_EQ(form.txtCmdFile.text(), "run.log");
    EXPECT_EQ(form.focused(), &form.txtMPEXE);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Options, The_log_file_can_be_named_only_while_logging_is_ticked) {
    form.show();
    EXPECT_EQ(form.chkCmdLogging.value(), 0);
    EXPECT_FALSE(form.txtCmdFile.enabled());
    EXPECT_FALSE(form.cmdCmdFile.enabled());
    form.chkCmdLogging.userClicked();
    EXPECT_TRUE(form.txtCmdFile.enabled());
    EXPECT_TRUE(form.cmdCmdFile.enabled());
    form.chkCmdLogging.userClicked();
    EXPECT_FALSE(form.txtCmdFile.enabled());
    EXPECT_FALSE(form.cmdCmdFile.enabled());
}

TEST_F(Options, Logging_that_is_on_is_shown_ticked_and_enabled) {
    definition.bCommandLineLogging = true;
    form.show();
    EXPECT_EQ(form.chkCmdLogging.value(), 1);
    EXPECT_TRUE(form.txtCmdFile.enabled());
    EXPECT_TRUE(form.cmdCmdFile.enabled());
}

TEST_F(Options, The_hyperlink_box_shows_the_setting) {
    for (const bool convert : {false, true}) {
        definition.bConvertHyperlinks = convert;
        frmOptions options(definition, files, desktop);
        options.show();
        EXPECT_TRUE(options.fraHyperlinks.enabled());
        EXPECT_TRUE(options.chkRelative.enabled());
        EXPECT_EQ(options.chkRelative.value(), convert ? 1 : 0);
    }
}

TEST_F(Options, A_configuration_file_that_names_the_outputs_takes_the_hyperlinks_over) {
    definition.bCfgNamesOutput = true;
    definition.bConvertHyperlinks = false;
    form.show();
    EXPECT_FALSE(form.fraHyperlinks.enabled());
    EXPECT_FALSE(form.chkRelative.enabled());
    EXPECT_EQ(form.chkRelative.value(), 1);
    form.chkRelative.userClicked();
    EXPECT_EQ(form.chkRelative.value(), 1);
    form.userClicked(form.cmdOK);
    EXPECT_TRUE(definition.bConvertHyperlinks);
}

TEST_F(Options, Browsing_for_MP_opens_an_executable_that_exists) {
    form.show();
    desktop.chosenFiles = {"D:\\Tools\\mp.exe"};
    form.userClicked(form.cmdMPEXE);
    EXPECT_THAT(desktop.fileDialogs,
                ElementsAre(FileDialog{.kind = FileDialog::Kind::Open,
                                       .title = "Open MP Executable",
                                       .filter = "Executable (*.exe)|*.exe|All Files (*.*)|*.*",
                                       .filterIndex = 1,
                                       .fileName = "",
                                       .initialFolder = "C:\\App\\",
                                       .fileMustExist = true,
                                       .overwritePrompt = false,
                                       .hideReadOnly = false}));
    EXPECT_EQ(form.txtMPEXE.text(), "D:\\Tools\\mp.exe");
    EXPECT_EQ(definition.sMPExecutable, "C:\\App\\mp.exe"); // until OK
}

TEST_F(Options, Browsing_for_CNS_opens_an_executable_that_exists) {
    form.show();
    desktop.chosenFiles = {"D:\\Tools\\cns.exe"};
    form.userClicked(form.cmdCNS);
    EXPECT_THAT(desktop.fileDialogs,
                ElementsAre(FileDialog{.kind = FileDialog::Kind::Open,
                                       .title = "Open CNS Executable",
                                       .filter = "Executable (*.exe)|*.exe|All Files (*.*)|*.*",
                                       .filterIndex = 1,
                                       .fileName = "",
                                       .initialFolder = "C:\\App\\",
                                       .fileMustExist = true,
                                       .overwritePrompt = false,
                                       .hideReadOnly = false}));
    EXPECT_EQ(form.txtCNS.text(), "D:\\Tools\\cns.exe");
}

TEST_F(Options, Browsing_for_the_log_file_saves) {
    definition.bCommandLineLogging = true;
    definition.sCommandLineLogFile = "run.log";
    form.show();
    desktop.chosenFiles = {"C:\\Logs\\new.log"};
    form.userClicked(form.cmdCmdFile);
    EXPECT_THAT(desktop.fileDialogs,
                ElementsAre(FileDialog{.kind = FileDialog::Kind::Save,
                                       .title = "Save Command Line Logging Filename",
                                       .filter = "Log Filename (*.log)|*.log|All Files (*.*)|*.*",
                                       .filterIndex = 1,
                                       .fileName = "",
                                       .initialFolder = "",
                                       .fileMustExist = false,
                                       .overwritePrompt = false,
                                       .hideReadOnly = false}));
    EXPECT_EQ(form.txtCmdFile.text(), "C:\\Logs\\new.log");
}

TEST_F(Options, A_cancelled_file_dialog_leaves_the_field_and_says_nothing) {
    definition.bCommandLineLogging = true;
    definition.sCommandLineLogFile = "run.log";
    form.show();
    desktop.chosenFiles = {std::nullopt, std::nullopt, std::nullopt};
    form.userClicked(form.cmdMPEXE);
    form.userClicked(form.cmdCNS);
    form.userClicked(form.cmdCmdFile);
    EXPECT_EQ(desktop.fileDialogs.size(), 3U);
    EXPECT_EQ(form.txtMPEXE.text(), "C:\\App\\mp.exe");
    EXPECT_EQ(form.txtCNS.text(), "C:\\App\\cns.exe");
    EXPECT_EQ(form.txtCmdFile.text(), "run.log");
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Options, Cancel_after_edits_leaves_every_setting_as_it_was) {
    const BatchDefinition before = definition;
    form.show();
    type(form.txtMPEXE, "D:\\Tools\\mp.exe");
    form.userClicked(form.chkCmdLogging);
    type(form.txtCmdFile, "run.log");
    form.userClicked(form.chkRelative);
    form.userClicked(form.cmdCancel);
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(definition, before);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Options, Closing_the_window_or_Escape_leaves_every_setting_as_it_was) {
    const BatchDefinition before = definition;
    form.show();
    type(form.txtMPEXE, "nonsense");
    form.userClosed();
    EXPECT_FALSE(form.loaded());
    form.show();
    type(form.txtCNS, "nonsense");
    form.userPressedEscape();
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(definition, before);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Options, A_caller_goes_on_when_the_dialog_is_gone) {
    ScriptedPresenter presenter;
    presenter.thenUser([this](Form&) {
        type(form.txtMPEXE, "D:\\Tools\\mp.exe");
        form.userClicked(form.cmdOK);
    });
    presenter.showModal(form);
    EXPECT_TRUE(presenter.done());
    EXPECT_THAT(presenter.shown, ElementsAre("frmOptions"));
    EXPECT_EQ(definition.sMPExecutable, "D:\\Tools\\mp.exe");
}

// A view that cannot show what it is told: the way in which any procedure can fail.
struct FailingView : View {
    void changed(Property) override { throw RunTimeError(ErrorNumber::DeviceIO); }
};

TEST_F(Options, An_error_while_loading_is_reported) {
    FailingView view;
    form.txtMPEXE.attach(view);
    form.show();
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub Form_Load()", ErrorNumber::DeviceIO)));
    form.txtMPEXE.detach();
}

TEST_F(Options, An_error_while_enabling_the_log_file_is_reported) {
    FailingView view;
    form.show();
    form.txtCmdFile.attach(view);
    form.chkCmdLogging.userClicked();
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub chkCmdLogging_Click()", ErrorNumber::DeviceIO)));
    form.txtCmdFile.detach();
}

TEST_F(Options, An_error_of_a_file_dialog_other_than_its_cancelling_is_reported) {
    struct BrokenDialogs : ScriptedDesktop {
        std::optional<std::string> chooseFile(const FileDialog&) override {
            throw RunTimeError(ErrorNumber::PathNotFound);
        }
    } broken;
    definition.bCommandLineLogging = true;
    frmOptions options(definition, files, broken);
    options.show();
    options.userClicked(options.cmdMPEXE);
    options.userClicked(options.cmdCNS);
    options.userClicked(options.cmdCmdFile);
    EXPECT_THAT(broken.messages,
                ElementsAre(report("Private Sub cmdMPEXE_Click()", ErrorNumber::PathNotFound),
                            report("Private Sub cmdCNS_Click()", ErrorNumber::PathNotFound),
                            report("Private Sub cmdCmdFile_Click()", ErrorNumber::PathNotFound)));
    EXPECT_EQ(options.txtMPEXE.text(), "C:\\App\\mp.exe");
}

TEST_F(Options, An_error_while_cancelling_is_reported) {
    FailingView view;
    form.show();
    form.attach(view);
    form.userClicked(form.cmdCancel);
    EXPECT_THAT(desktop.messages,
                ElementsAre(report("Private Sub cmdCancel_Click()", ErrorNumber::DeviceIO)));
    form.detach();
}

} // namespace
} // namespace tarnwick
