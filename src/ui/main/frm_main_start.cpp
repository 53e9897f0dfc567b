// How the main window's life begins and ends.

#include "common/left_out_report.hpp"
#include "common/mod_main.hpp"
#include "common/trap.hpp"
#include "definition/start_up.hpp"
#include "definition/stored_settings.hpp"
#include "ui/main/frm_main.hpp"
#include "ui/main/frm_main_measures.hpp"

namespace tarnwick {

void frmMain::Form_Load() {
    resizeTo(mainWindow);
    centreOnScreen();
    showDefinition(definitionAtStartUp(services_.process, services_.files, services_.settings));
    tellNamelessPaths(services_.desktop, namelessAtStartUp(services_.process, services_.settings));
    MyDefaultSettings();
    cmdOK.setEnabled(false);
    if (FileExists(services_.files, definition_.sINIFile) && !ReadINIFile()) {
        showDefinition(BatchDefinition(definition_)); // how far the reader got
        bINIFileUnread_ = true;
    }
    if (!findTools()) {
        abandon(); // nothing is asked and nothing stored
        return;
    }
    nameINIFile();
    chkCNS.Click();
    chkMP.Click();
    definition_.bSettingsChanged = false;
}

// Every tool that is to be run must be there before the window comes up.
bool frmMain::findTools() {
    return (!chkMP.ticked() || findTool("MP", definition_.sMPExecutable)) &&
           (!chkCNS.ticked() || findTool("CNS", definition_.sCNSExecutable));
}

// `executable` is the definition's own field, which the options dialog may change.
bool frmMain::findTool(std::string_view tool, std::string& executable) {
    if (fileExists(executable)) {
        return true;
    }
    showWarning(services_.desktop,
                "Please specify the " + std::string(tool) + " executable location.");
    executable.clear();
    fire(services_.showOptions, current());
    return fileExists(executable);
}

void frmMain::Form_Unload() {
    storeSettings();
    trap(services_.desktop, name(), "Private Sub Form_Unload(Cancel As Integer)", [this] {
        clearStatusAndCommit(); // an edit that is going on counts
        if (!bAskedAtSessionEnd_) {
            keepWork();
        }
    });
    if (run_) { // whatever has failed: nobody could cancel it any more
        run_->close();
    }
}

// A store that cannot be written must not cost the user the question.
void frmMain::storeSettings() {
    trap(services_.desktop, name(), "Private Sub Form_Unload(Cancel As Integer)", [this] {
        store(services_.settings, StoredSetting::INIFileName, definition_.sINIFile);
        store(services_.settings, StoredSetting::MPExecutable, definition_.sMPExecutable);
        store(services_.settings, StoredSetting::CNSExecutable, definition_.sCNSExecutable);
    });
}

// The system waits for an answer only now: when the session has ended, it may end the program
// before anybody has read a question. While one is read the user may have the system end the
// program: what needs no answer is kept before.
void frmMain::Form_SessionIsEnding() {
    storeSettings();
    clearStatusAndCommit();
    keepWork();
    bAskedAtSessionEnd_ = true;
}

// Nothing holds up the end: where the file cannot be written (it lies in a program's folder, say),
// this is the last moment to keep the work in another, unless nobody wants to.
void frmMain::keepWork() {
    if (offerToSave() == Changes::NotSaved) {
        while (saveAs() == SavedAs::NotWritten) {
        }
    }
}

void frmMain::Form_SessionGoesOn() {
    bAskedAtSessionEnd_ = false;
}

// What was done in the window is kept, and the user is asked about it, as at any other end; the run
// that goes on is told by it.
void frmMain::Form_ViewFailed(const std::exception_ptr& error) {
    trap(services_.desktop, name(), "Private Sub Form_Load()",
         [&error] { std::rethrow_exception(error); });
}

} // namespace tarnwick
