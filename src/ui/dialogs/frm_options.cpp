#include "ui/dialogs/frm_options.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "definition/resolved_paths.hpp"
#include "ui/dialogs/send_back.hpp"
#include "ui/forms/connect.hpp"

namespace tarnwick {
namespace {

constexpr std::string_view formName = "frmOptions";
constexpr std::string_view executables = "Executable (*.exe)|*.exe|All Files (*.*)|*.*";
constexpr std::string_view logs = "Log Filename (*.log)|*.log|All Files (*.*)|*.*";

std::string doesNotExist(std::string_view what, std::string_view path) {
    return std::string("The ").append(what).append(" ").append(quoted(path)) + " does not exist.";
}

std::string hasInvalidFolder(std::string_view path) {
    return "The command line logging file " + quoted(path) + " has an invalid folder.";
}

FileDialog openExecutable(std::string_view title) {
    return {.kind = FileDialog::Kind::Open,
            .title = std::string(title),
            .filter = std::string(executables),
            .fileMustExist = true};
}

void writeBackTrimmed(TextBox& field) {
    field.setText(std::string(trim(field.text())));
}

} // namespace

frmOptions::frmOptions(BatchDefinition& definition, const Files& files, Desktop& desktop)
    : Form(formName, "Options"), definition_(definition), files_(files), desktop_(desktop) {
    connectEvents();
}

void frmOptions::connectEvents() {
    const Connector connect(desktop_, *this);
    connect.load(&frmOptions::Form_Load);
    connect.click(cmdMPEXE, &frmOptions::cmdMPEXE_Click);
    connect.click(cmdCNS, &frmOptions::cmdCNS_Click);
    connect.click(cmdCmdFile, &frmOptions::cmdCmdFile_Click);
    connect.click(chkCmdLogging, &frmOptions::chkCmdLogging_Click);
    connect.change(txtMPEXE, &frmOptions::txtMPEXE_Change);
    connect.change(txtCNS, &frmOptions::txtCNS_Change);
    connect.change(txtCmdFile, &frmOptions::txtCmdFile_Change);
    connect.lostFocus(txtMPEXE, &frmOptions::txtMPEXE_LostFocus);
    connect.lostFocus(txtCNS, &frmOptions::txtCNS_LostFocus);
    connect.lostFocus(txtCmdFile, &frmOptions::txtCmdFile_LostFocus);
    connect.click(cmdOK, &frmOptions::cmdOK_Click);
    connect.click(cmdCancel, &frmOptions::cmdCancel_Click);
}

void frmOptions::Form_Load() {
    txtMPEXE.setText(definition_.sMPExecutable);
    txtCNS.setText(definition_.sCNSExecutable);
    txtCmdFile.setText(definition_.sCommandLineLogFile);
    // A configuration file that names the outputs itself decides about their hyperlinks too.
    const bool decidedElsewhere = definition_.bCfgNamesOutput;
    fraHyperlinks.setEnabled(!decidedElsewhere);
    chkRelative.setEnabled(!decidedElsewhere);
    chkRelative.setValue(decidedElsewhere || definition_.bConvertHyperlinks ? 1 : 0);
    chkCmdLogging.setValue(definition_.bCommandLineLogging ? 1 : 0);
    enableLogging(definition_.bCommandLineLogging);
}

void frmOptions::enableLogging(bool enabled) {
    txtCmdFile.setEnabled(enabled);
    cmdCmdFile.setEnabled(enabled);
}

void frmOptions::cmdMPEXE_Click() {
    browse(txtMPEXE, openExecutable("Open MP Executable"));
}

void frmOptions::cmdCNS_Click() {
    browse(txtCNS, openExecutable("Open CNS Executable"));
}

void frmOptions::cmdCmdFile_Click() {
    browse(txtCmdFile, {.kind = FileDialog::Kind::Save,
                        .title = "Save Command Line Logging Filename",
                        .filter = std::string(logs)});
}

// Starts where the field points to.
void frmOptions::browse(TextBox& field, FileDialog dialog) {
    if (const std::string folder = GetFolderPath(trim(field.text())); !folder.empty()) {
        dialog.initialFolder =
            withBackslash(folder); // "C:" alone would be that drive's current one
    }
    if (const auto chosen = desktop_.chooseFile(dialog)) {
        field.setText(*chosen);
    }
}

void frmOptions::txtMPEXE_LostFocus() {
    if (bMPEXEChanged_) {
        checkTool(txtMPEXE, definition_.iProcessMP, "MP executable");
        bMPEXEChanged_ = false;
    }
}

void frmOptions::txtCNS_LostFocus() {
    if (bCNSChanged_) {
        checkTool(txtCNS, definition_.iProcessCNS, "CNS executable");
        bCNSChanged_ = false;
    }
}

void frmOptions::checkTool(TextBox& field, int process, std::string_view tool) {
    writeBackTrimmed(field);
    if (!mayBeNowhere(field, process)) {
        takeBareNameFromAppFolder(field);
        (void)acceptTool(field, process, tool);
    }
}

// OK accepts an empty location while its tool is switched off in the main window. A click on OK
// leaves the field first, so leaving the field must accept it as well.
bool frmOptions::mayBeNowhere(const TextBox& field, int process) {
    return process != checked && field.text().empty();
}

void frmOptions::takeBareNameFromAppFolder(TextBox& field) {
    if (!hasBackslash(field.text())) {
        field.setText(definition_.sAppFolder + field.text());
    }
}

void frmOptions::txtCmdFile_LostFocus() {
    if (!bCmdFileChanged_) {
        return;
    }
    writeBackTrimmed(txtCmdFile);
    if (hasBackslash(txtCmdFile.text()) &&
        !FolderExists(files_, GetFolderPath(txtCmdFile.text()))) {
        sendBack(desktop_, txtCmdFile, hasInvalidFolder(txtCmdFile.text()));
    }
    bCmdFileChanged_ = false;
}

void frmOptions::cmdOK_Click() {
    if (!acceptTool(txtMPEXE, definition_.iProcessMP, "MP executable file") ||
        !acceptTool(txtCNS, definition_.iProcessCNS, "CNS executable file") || !acceptLogging()) {
        return;
    }
    definition_.sMPExecutable = txtMPEXE.text();
    definition_.sCNSExecutable = txtCNS.text();
    definition_.bCommandLineLogging = chkCmdLogging.ticked();
    definition_.sCommandLineLogFile = trim(txtCmdFile.text());
    definition_.bConvertHyperlinks = chkRelative.value() > 0;
    definition_.bSettingsChanged = true;
    unload();
}

bool frmOptions::acceptTool(TextBox& field, int process, std::string_view tool) {
    writeBackTrimmed(field);
    if (mayBeNowhere(field, process)) {
        return true;
    }
    if (!field.text().empty()) {
        // Enter presses OK without leaving the field. A bare name must not be stored: a batch
        // stands in the input folder and would not find the tool.
        takeBareNameFromAppFolder(field);
    }
    if (!FileExists(files_, resolvedFile(definition_.sAppFolder, field.text()))) {
        sendBack(desktop_, field, doesNotExist(tool, field.text()));
        return false;
    }
    return true;
}

bool frmOptions::acceptLogging() {
    if (!chkCmdLogging.ticked()) {
        return true;
    }
    const std::string file(trim(txtCmdFile.text()));
    if (file.empty()) {
        sendBack(desktop_, txtCmdFile, "Please specify a command line logging filename.");
        return false;
    }
    const std::string folder = GetFolderPath(file);
    if (!folder.empty() && !FolderExists(files_, folder)) {
        sendBack(desktop_, txtCmdFile, hasInvalidFolder(file));
        return false;
    }
    return true;
}

} // namespace tarnwick
