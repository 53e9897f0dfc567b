// How the main window's life begins and ends.

#include "common/left_out_report.hpp"
#include "common/mod_main.hpp"
#include "common/trap.hpp"
#include "definition/start_up.hpp"
#include "definition/stored_settings.hpp"
#include "ui/main/frm_main.hpp"

namespace tarnwick {

void frmMain::Form_Load() {
    resizeTo(mainWindow);
    centreOnScreen();
    showDefinition(definitionAtStartUp(services_.process, services_.files, services_.settings));
    tellNamelessPaths(services_.desktop, namelessAtStartUp(services_.process, services_.settings));
    MyDefaultSettings();
    cmdOK.setEnabled(false);
    if (BatchDefinition read = definition();
        FileExists(services_.files, read.sINIFile) && !ReadINIFile(read)) {
        showDefinition(read); // what was read before the error
        bINIFileUnread_ = true;
    }
    if (!findTools()) {
        abandon(); // nothing is asked and nothing stored
        return;
    }
    nameINIFile();
    chkCNS.Click();
    chkMP.Click();
    program_.bSettingsChanged = false;
}

// Every tool that is to be run must be there before the window comes up.
bool frmMain::findTools() {
    return (!chkMP.ticked() || findTool("MP", program_.sMPExecutable)) &&
           (!chkCNS.ticked() || findTool("CNS", program_.sCNSExecutable));
}

// `executable` is the window's own field, which the options dialog may change.
bool frmMain::findTool(std::string_view tool, std::string& executable) {
    if (fileExists(executable)) {
        return true;
    }
    showWarning(services_.desktop,
                "Please specify the " + std::string(tool) + " executable location.");
    executable.clear();
    showOptions();
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
    if (run_) { // even after an error above: without the window nobody could cancel it
        run_->close();
    }
}

// The error is trapped here: where the store cannot be written, the user is still asked to save.
void frmMain::storeSettings() {
    trap(services_.desktop, name(), "Private Sub Form_Unload(Cancel As Integer)", [this] {
        store(services_.settings, StoredSetting::INIFileName, program_.sINIFile);
        store(services_.settings, StoredSetting::MPExecutable, program_.sMPExecutable);
        store(services_.settings, StoredSetting::CNSExecutable, program_.sCNSExecutable);
    });
}

// The system waits for an answer only now: once the session has ended, it may end the program while
// a question is still on the screen. It may do so even now, if the user tells it to: so the
// settings, which need no answer, are stored first.
void frmMain::Form_SessionIsEnding() {
    storeSettings();
    clearStatusAndCommit();
    keepWork();
    bAskedAtSessionEnd_ = true;
}

// The program ends whatever happens here. Where the file cannot be written (it lies in a program's
// folder, say), the user is asked for another one until the work is saved or the dialog cancelled.
void frmMain::keepWork() {
    if (offerToSave() == Changes::NotSaved) {
        while (saveAs() == SavedAs::NotWritten) {
        }
    }
}

// Only reports the error. The form is then unloaded as at any other end: the user is asked to save,
// and a run that goes on is ended.
void frmMain::Form_ViewFailed(const std::exception_ptr& error) {
    trap(services_.desktop, name(), "Private Sub Form_Load()",
         [&error] { std::rethrow_exception(error); });
}

} // namespace tarnwick
