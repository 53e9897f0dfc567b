// The definition and the window that shows it: defaults, INI file, configuration file.

#include "common/mod_main.hpp"
#include "common/trap.hpp"
#include "definition/ini_file.hpp"
#include "definition/resolved_paths.hpp"
#include "postprocess/configuration_file.hpp"
#include "ui/main/frm_main.hpp"
#include "ui/main/output_rows.hpp"

namespace tarnwick {

void frmMain::fillControls() {
    chkMP.setValue(definition_.iProcessMP);
    chkCNS.setValue(definition_.iProcessCNS);
    // Where the definition has the very text that the user typed, leaving the field must still list
    // the folder.
    bInputChanged_ = bInputChanged_ && txtInput.text() == definition_.sInputFolder;
    bInExtChanged_ = bInExtChanged_ && txtInExt.text() == definition_.sInputExtensions;
    txtInput.setText(definition_.sInputFolder);
    txtInExt.setText(definition_.sInputExtensions);
    txtCNS.setText(definition_.sCNSOutputFolder);
    txtCNSExt.setText(definition_.sCNSOutputExtension);
    chkAliases.setValue(definition_.bUseAliases);
    txtAliases.setText(definition_.sAliasesFile);
    chkCFG.setValue(definition_.bUseConfigFile);
    txtCFG.setText(definition_.sConfigFile);
    chkfixdoc.setValue(definition_.iFixDoc);
    cboLanguage.setText(definition_.sLanguage);
    if (!chkCFG.ticked()) { // a file that is not used names nothing
        forgetConfigurationEntries(definition_);
    }
    showOutputRows();
    bFieldEdited_ = false;
}

void frmMain::showOutputRows() {
    mpOutputs_.discard();
    cnsOutputs_.discard();
    showOutputs(grdFiles, definition_.MPOutputs);
    showOutputs(grdCNS, definition_.CNSOutputs);
}

void frmMain::MyDefaultSettings() {
    trap(services_.desktop, name(), "Private Sub MyDefaultSettings()", [this] {
        tarnwick::MyDefaultSettings(current());
        chkfixdoc.setValue(definition_.iFixDoc);
        cboLanguage.setText(definition_.sLanguage);
        chkCFG.setValue(definition_.bUseConfigFile);
        LoadDefaultGridSettings();
        mpOutputs_.forgetPress();
        cnsOutputs_.forgetPress();
        enableAll();
    });
}

void frmMain::LoadDefaultGridSettings() {
    trap(services_.desktop, name(), "Private Sub LoadDefaultGridSettings", [this] {
        tarnwick::LoadDefaultGridSettings(definition_);
        showOutputRows();
    });
}

// Whether it was read. If not, the definition holds what was read before the error, and the window
// shows either that or what it showed before: the caller must show a whole definition.
bool frmMain::ReadINIFile() {
    const bool completed = tarnwick::ReadINIFile(current(), services_.files, services_.desktop,
                                                 [this] { showWhatWasRead(); });
    bINIFileUnread_ = bINIFileUnread_ && !completed;
    return completed;
}

void frmMain::showWhatWasRead() {
    fillControls();
    if (FolderExists(services_.files, txtInput.text())) {
        listInputFolder();
    }
    if (chkCFG.ticked() && fileExists(txtCFG.text())) {
        GetCFGValues();
    }
    enableAll();
    EnableOK();
}

bool frmMain::SaveINIFile() {
    if (bFieldEdited_) {
        bFieldEdited_ = false;
        markChanged(); // and stays so where the file cannot be written
    }
    const bool saved = tarnwick::SaveINIFile(current(), services_.files, services_.desktop);
    bINIFileUnread_ = bINIFileUnread_ && !saved;
    return saved;
}

// After a new change the answer that was given when the session was about to end no longer counts.
void frmMain::markChanged() noexcept {
    definition_.bSettingsChanged = true;
    bAskedAtSessionEnd_ = false;
}

void frmMain::markFieldEdited() noexcept {
    bFieldEdited_ = true;
    bAskedAtSessionEnd_ = false;
}

// A relative path counts from the program's folder, as it does for the tools.
bool frmMain::fileExists(std::string_view path) const {
    return FileExists(services_.files, resolvedFile(definition_.sAppFolder, path));
}

bool frmMain::outputFolderExists(std::string_view folder) const {
    return FolderExists(services_.files, resolvedFolder(txtInput.text(), services_.files, folder));
}

void frmMain::GetCFGValues() {
    tarnwick::GetCFGValues(current(), services_.files, services_.desktop, [this] {
        if (definition_.bCfgNamesOutput) {
            showOutputRows();
        }
        chkCNS.Click();
        chkMP.Click();
    });
    enableAll(); // also where the file could not be read to its end
}

} // namespace tarnwick
