// The commands of the menus, and the language box.

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "definition/ini_file.hpp"
#include "definition/stored_settings.hpp"
#include "ui/main/frm_main.hpp"

#include <utility>

namespace tarnwick {
namespace {

constexpr std::string_view iniFiles = "INI File (*.ini)|*.ini|All Files (*.*)|*.*";
constexpr std::string_view helpFile = "Tarnwick.chm";

constexpr std::string_view newProcedure = "Private Sub mnuNewINI_Click()";
constexpr std::string_view saveProcedure = "Private Sub mnuSaveINI_Click()";
constexpr std::string_view saveAsProcedure = "Private Sub mnuSaveAsINI_Click()";

FileDialog iniDialog(FileDialog::Kind kind, std::string_view title) {
    return {.kind = kind, .title = std::string(title), .filter = std::string(iniFiles)};
}

// The dialog starts at the present INI file, else in the program's folder.
FileDialog startingAtINIFile(FileDialog dialog, const ProgramSettings& program) {
    if (trim(program.sINIFile).empty()) {
        dialog.initialFolder = program.sAppFolder;
    } else {
        dialog.fileName = program.sINIFile;
    }
    return dialog;
}

} // namespace

frmMain::Changes frmMain::beginFileCommand() {
    clearStatusAndCommit();
    const Changes changes = offerToSave();
    if (!stillToSave(changes)) {
        program_.bSettingsChanged = false;
        bFieldEdited_ = false;
    }
    return changes;
}

frmMain::Changes frmMain::offerToSave() {
    if (!program_.bSettingsChanged && !bFieldEdited_) {
        return Changes::None;
    }
    const MessageAnswer answer =
        services_.desktop.show({.text = "Do you want to save the changes you made to " +
                                        std::string(lineEnd) + quoted(program_.sINIFile) + "?",
                                .title = std::string(applicationTitle),
                                .icon = MessageIcon::None,
                                .buttons = MessageButtons::YesNo});
    if (answer != MessageAnswer::Yes) {
        return Changes::Declined;
    }
    markChanged(); // until it is saved: a field that is still being edited counts
    if (!bINIFileUnread_) {
        return SaveINIFile() ? Changes::Saved : Changes::NotSaved;
    }
    const SavedAs saved = saveAs();
    return saved == SavedAs::Written     ? Changes::Saved
           : saved == SavedAs::Cancelled ? Changes::Cancelled
                                         : Changes::NotSaved;
}

// The error is trapped here: where the store cannot be written, the file still must be.
void frmMain::storeNow(std::string_view sINIFile, std::string_view procedure) {
    program_.sINIFile = sINIFile;
    trap(services_.desktop, name(), procedure,
         [this] { store(services_.settings, StoredSetting::INIFileName, program_.sINIFile); });
}

void frmMain::nameINIFile() {
    const std::string file = GetFileName(program_.sINIFile);
    setCaption("Tarnwick - " + file);
    StatusBar1.setPanelText(2, file);
}

// The defaults, with the fields, process boxes and tools as they stand.
BatchDefinition frmMain::newDefinition(std::string_view sINIFile) {
    BatchDefinition fresh = definition();
    tarnwick::MyDefaultSettings(fresh);
    fresh.sINIFile = sINIFile;
    if (const std::string_view folder = trim(txtInput.text());
        (bInputChanged_ || bInExtChanged_) && FolderExists(services_.files, folder)) {
        fresh.sInputFolder = folder; // as leaving the field would do
    }
    return fresh;
}

// The file comes first: where it cannot be written, the window must not show the defaults under the
// old name, or the next Save would write them over the old definition.
void frmMain::mnuNewINI_Click() {
    const Changes changes = beginFileCommand();
    if (stillToSave(changes)) {
        return;
    }
    FileDialog dialog = iniDialog(FileDialog::Kind::Save, "New INI File");
    dialog.overwritePrompt = true;
    const auto chosen = services_.desktop.chooseFile(dialog);
    if (!chosen || chosen->empty()) {
        return;
    }
    BatchDefinition fresh = newDefinition(*chosen);
    if (!tarnwick::SaveINIFile(fresh, services_.files, services_.desktop)) {
        program_.bSettingsChanged = changes == Changes::Declined; // they are still there
        return;
    }
    bINIFileUnread_ = false;
    storeNow(*chosen, newProcedure);
    MyDefaultSettings();
    nameINIFile();
    // Only now, so that the new file holds whether MP was run before.
    chkMP.setValue(checked);
    chkMP.Click();
    if ((bInputChanged_ || bInExtChanged_) && FolderExists(services_.files, fresh.sInputFolder)) {
        // The field has not been left, which would have listed the folder: it is listed now, for
        // the new file names it.
        txtInput.setText(fresh.sInputFolder);
        thenEnableOK([this] { listInputFolder(); });
    }
}

void frmMain::mnuOpenINI_Click() {
    const Changes changes = beginFileCommand();
    if (stillToSave(changes)) {
        return;
    }
    FileDialog dialog =
        startingAtINIFile(iniDialog(FileDialog::Kind::Open, "Open INI File"), program_);
    dialog.fileMustExist = true;
    const auto chosen = services_.desktop.chooseFile(dialog);
    if (!chosen || chosen->empty()) {
        return;
    }
    BatchDefinition before = definition();
    BatchDefinition read = before;
    read.sINIFile = *chosen;
    if (!ReadINIFile(read)) {
        // Half a definition must not stay in the window: the next Save would write it over a file.
        before.bSettingsChanged = changes == Changes::Declined; // they are still there
        showDefinition(before);
    }
    nameINIFile();
}

// An INI file that could not be read when the program began is not overwritten: the user says where
// to save.
void frmMain::mnuSaveINI_Click() {
    clearStatusAndCommit();
    if (bINIFileUnread_) {
        saveAs();
        return;
    }
    storeNow(std::string(program_.sINIFile), saveProcedure);
    SaveINIFile();
    nameINIFile();
}

void frmMain::mnuSaveAsINI_Click() {
    clearStatusAndCommit();
    saveAs();
}

// The definition keeps its old file name until the new file is written.
frmMain::SavedAs frmMain::saveAs() {
    const auto chosen = services_.desktop.chooseFile(
        startingAtINIFile(iniDialog(FileDialog::Kind::Save, "Save INI File As"), program_));
    if (!chosen || chosen->empty()) {
        return SavedAs::Cancelled;
    }
    const std::string before = std::exchange(program_.sINIFile, *chosen);
    if (!SaveINIFile()) {
        program_.sINIFile = before;
        markChanged(); // what is in the window is in no file
        return SavedAs::NotWritten;
    }
    storeNow(*chosen, saveAsProcedure);
    nameINIFile();
    return SavedAs::Written;
}

void frmMain::mnuOptions_Click() {
    clearStatusAndCommit();
    showOptions();
}

// The file's name stays as it is now: the session may have been about to end while the dialog was
// open, and the user have saved under another name.
void frmMain::showOptions() {
    const BatchDefinition before = definition();
    BatchDefinition options = before;
    fire(services_.showOptions, options);
    if (options != before) {
        options.sINIFile = program_.sINIFile;
        program_ = static_cast<const ProgramSettings&>(options);
        markChanged();
    }
}

void frmMain::mnuHelpTarnwick_Click() {
    const std::string file = program_.sAppFolder + std::string(helpFile);
    if (FileExists(services_.files, file)) {
        StartDoc(services_.desktop, file);
    } else {
        showWarning(services_.desktop, "The help file " + quoted(file) + " does not exist.");
    }
}

void frmMain::mnuHelpCNS_Click() {
    StartDoc(services_.desktop, services_.cnsHelp);
}

void frmMain::mnuHelpMP_Click() {
    StartDoc(services_.desktop, services_.mpHelp);
}

void frmMain::mnuAbout_Click() {
    clearStatusAndCommit();
    fire(services_.showAbout);
}

void frmMain::cboLanguage_Change() {
    markChanged();
    EnableOK();
}

} // namespace tarnwick
