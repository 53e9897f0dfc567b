// The definition and the window that shows it: defaults, INI file, configuration file.

#include "common/mod_main.hpp"
#include "common/trap.hpp"
#include "definition/ini_file.hpp"
#include "definition/resolved_paths.hpp"
#include "postprocess/configuration_file.hpp"
#include "ui/main/frm_main.hpp"
#include "ui/main/output_rows.hpp"

namespace tarnwick {

// Each setting into its control, or into the member.
void frmMain::setDefinition(const BatchDefinition& definition) {
    program_ = static_cast<const ProgramSettings&>(definition);
    chkMP.setValue(definition.iProcessMP);
    chkCNS.setValue(definition.iProcessCNS);
    // Where the definition has the very text that the user typed, leaving the field must still list
    // the folder.
    bInputChanged_ = bInputChanged_ && txtInput.text() == definition.sInputFolder;
    bInExtChanged_ = bInExtChanged_ && txtInExt.text() == definition.sInputExtensions;
    txtInput.setText(definition.sInputFolder);
    txtInExt.setText(definition.sInputExtensions);
    txtCNS.setText(definition.sCNSOutputFolder);
    txtCNSExt.setText(definition.sCNSOutputExtension);
    chkAliases.setValue(definition.bUseAliases);
    txtAliases.setText(definition.sAliasesFile);
    chkCFG.setValue(definition.bUseConfigFile);
    txtCFG.setText(definition.sConfigFile);
    chkfixdoc.setValue(definition.iFixDoc);
    cboLanguage.setText(definition.sLanguage);
    if (!chkCFG.ticked()) { // a file that is not used names nothing
        forgetConfigurationEntries(program_);
    }
    showOutputRows(definition);
    bFieldEdited_ = false;
}

void frmMain::showOutputRows(const BatchDefinition& definition) {
    mpOutputs_.discard();
    cnsOutputs_.discard();
    showOutputs(grdFiles, definition.MPOutputs);
    showOutputs(grdCNS, definition.CNSOutputs);
}

void frmMain::MyDefaultSettings() {
    trap(services_.desktop, name(), "Private Sub MyDefaultSettings()", [this] {
        BatchDefinition defaults = definition();
        tarnwick::MyDefaultSettings(defaults);
        program_ = static_cast<const ProgramSettings&>(defaults);
        chkfixdoc.setValue(defaults.iFixDoc);
        cboLanguage.setText(defaults.sLanguage);
        chkCFG.setValue(defaults.bUseConfigFile);
        LoadDefaultGridSettings();
        mpOutputs_.forgetPress();
        cnsOutputs_.forgetPress();
        enableAll();
    });
}

void frmMain::LoadDefaultGridSettings() {
    trap(services_.desktop, name(), "Private Sub LoadDefaultGridSettings", [this] {
        BatchDefinition defaults;
        tarnwick::LoadDefaultGridSettings(defaults);
        showOutputRows(defaults);
    });
}

// Reads the file `sINIFile` into `read` and shows it. False when that failed: `read` then holds
// what was read before the error, and the window shows either that or what it showed before: the
// caller must show a whole definition.
bool frmMain::ReadINIFile(BatchDefinition& read) {
    bool found = false;
    const bool completed =
        tarnwick::ReadINIFile(read, services_.files, services_.desktop, [this, &read, &found] {
            found = true;
            showWhatWasRead(read);
        });
    if (completed) {
        if (!found) { // the window stays as it is, but for the name
            program_.sINIFile = read.sINIFile;
        }
        program_.bSettingsChanged = false;
        bINIFileUnread_ = false;
    }
    return completed;
}

void frmMain::showWhatWasRead(const BatchDefinition& read) {
    setDefinition(read);
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
    BatchDefinition saved = definition();
    const bool completed = tarnwick::SaveINIFile(saved, services_.files, services_.desktop);
    program_.bSettingsChanged = saved.bSettingsChanged;
    bINIFileUnread_ = bINIFileUnread_ && !completed;
    return completed;
}

// After a new change the answer that was given when the session was about to end no longer counts.
void frmMain::markChanged() noexcept {
    program_.bSettingsChanged = true;
    bAskedAtSessionEnd_ = false;
}

void frmMain::markFieldEdited() noexcept {
    bFieldEdited_ = true;
    bAskedAtSessionEnd_ = false;
}

// A relative path counts from the program's folder, as it does for the tools.
bool frmMain::fileExists(std::string_view path) const {
    return FileExists(services_.files, resolvedFile(program_.sAppFolder, path));
}

bool frmMain::outputFolderExists(std::string_view folder) const {
    return FolderExists(services_.files, resolvedFolder(txtInput.text(), services_.files, folder));
}

void frmMain::GetCFGValues() {
    BatchDefinition inspected = definition();
    const auto takeFlags = [this, &inspected] {
        program_.bCfgNamesInput = inspected.bCfgNamesInput;
        program_.bCfgNamesOutput = inspected.bCfgNamesOutput;
    };
    tarnwick::GetCFGValues(inspected, services_.files, services_.desktop, [&] {
        takeFlags();
        if (inspected.bCfgNamesOutput) {
            showOutputRows(inspected);
        }
        chkCNS.Click();
        chkMP.Click();
    });
    // Also where the file could not be read to its end.
    takeFlags();
    enableAll();
}

} // namespace tarnwick
