// The fields and check boxes of the main window, and what they enable.

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "ui/dialogs/send_back.hpp"
#include "ui/forms/keys.hpp"
#include "ui/main/frm_main.hpp"
#include "ui/main/output_rows.hpp"

#include <cstddef>
#include <initializer_list>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::string_view openFolder = "Open Folder";
constexpr std::string_view textFiles = "Text File (*.txt)|*.txt|All Files (*.*)|*.*";
constexpr std::string_view configFiles =
    "Config File (*.cfg)|*.cfg|Text File (*.txt)|*.txt|All Files (*.*)|*.*";

void enable(std::initializer_list<Control*> controls, bool enabled) {
    for (Control* const control : controls) {
        control->setEnabled(enabled);
    }
}

} // namespace

void frmMain::chkCNS_Click() {
    clearStatusAndCommit();
    markChanged();
    enableCNS();
    EnableOK();
}

// On purpose, this one does not mark the settings as changed.
void frmMain::chkMP_Click() {
    clearStatusAndCommit();
    enableMP();
    EnableOK();
}

void frmMain::enableCNS() {
    const bool on = chkCNS.ticked();
    const bool outputsElsewhere = program_.bCfgNamesOutput;
    enable({&lblCNS, &txtCNS, &cmdCNS, &lblCNSExt, &txtCNSExt, &lblCNSFiles, &grdCNS},
           on && !outputsElsewhere);
    chkAliases.setEnabled(on);
    enable({&txtAliases, &cmdAliases}, on && chkAliases.ticked());
    labelCNSFolder();
    if (on && outputsElsewhere) { // the configuration file decides
        txtCNS.setText("");
        txtCNSExt.setText("");
    }
}

void frmMain::enableMP() {
    const bool outputsElsewhere = chkCFG.ticked() && program_.bCfgNamesOutput;
    enable({&lblMPFiles, &grdFiles, &chkfixdoc, &cmdOutputFolder},
           chkMP.ticked() && !outputsElsewhere);
    labelCNSFolder();
}

// What CNS writes is what MP reads, when both are run.
void frmMain::labelCNSFolder() {
    lblCNS.setCaption(chkCNS.ticked() && chkMP.ticked() ? "CNS &output folder / MP input folder:"
                                                        : "CNS &output folder:");
}

void frmMain::enableAll() {
    enable({&txtCFG, &cmdCFG}, chkCFG.ticked());
    enableCNS();
    enableMP();
}

void frmMain::chkAliases_Click() {
    clearStatusAndCommit();
    markChanged();
    enable({&txtAliases, &cmdAliases}, chkAliases.ticked());
    EnableOK();
}

void frmMain::chkCFG_Click() {
    clearStatusAndCommit();
    markChanged();
    enable({&txtCFG, &cmdCFG}, chkCFG.ticked());
    if (!chkCFG.ticked()) {
        forgetConfigurationEntries(program_);
    } else if (fileExists(txtCFG.text())) {
        GetCFGValues();
    }
    chkCNS.Click();
    chkMP.Click();
    EnableOK();
}

void frmMain::cmdAliases_Click() {
    clearStatusAndCommit();
    const auto chosen = browse(txtAliases, "Open Aliases File", textFiles);
    if (!chosen) {
        return;
    }
    (void)take(txtAliases, *chosen);
    EnableOK();
}

void frmMain::cmdCFG_Click() {
    clearStatusAndCommit();
    const auto chosen = browse(txtCFG, "Open Configuration File", configFiles);
    if (!chosen) {
        return;
    }
    if (take(txtCFG, *chosen)) {
        GetCFGValues();
    }
    EnableOK();
}

// Starts at the field's file. Nothing when the dialog was cancelled.
std::optional<std::string> frmMain::browse(const TextBox& field, std::string_view title,
                                           std::string_view filter) {
    return services_.desktop.chooseFile({.kind = FileDialog::Kind::Open,
                                         .title = std::string(title),
                                         .filter = std::string(filter),
                                         .fileName = field.text(),
                                         .hideReadOnly = true});
}

// Puts the chosen name into the field; false when none was chosen.
bool frmMain::take(TextBox& field, std::string_view chosen) {
    if (chosen.empty()) {
        return false;
    }
    field.setText(chosen);
    markChanged();
    return true;
}

void frmMain::cmdCNS_Click() {
    clearStatusAndCommit();
    const std::string folder = pickFolder(openFolder, txtInput.text());
    if (!folder.empty()) {
        txtCNS.setText(folder);
        markChanged();
    }
    EnableOK();
}

void frmMain::cmdOutputFolder_Click() {
    clearStatusAndCommit();
    const std::string folder = pickFolder(openFolder, txtInput.text());
    if (!folder.empty()) {
        for (int row = 1; row < grdFiles.rows(); ++row) {
            grdFiles.setText(row, folderColumn, folder);
        }
        markChanged();
    }
    EnableOK();
}

void frmMain::cmdInput_Click() {
    thenEnableOK([this] {
        clearStatusAndCommit();
        const std::string folder = pickFolder(openFolder, txtInput.text());
        if (!folder.empty()) {
            txtInput.setText(folder);
            relist();
        }
    });
}

void frmMain::txtCNS_Change() {
    clearStatusAndCommit();
    markFieldEdited();
}

void frmMain::textEdited() {
    StatusBar1.setPanelText(1, "");
    markFieldEdited();
}

// For a field that is being left: trims it, and is true when it is blank, so that there is nothing
// to check. Emptying it is a change, too.
bool frmMain::leaveBlank(TextBox& field) {
    const bool edited = std::exchange(bFieldEdited_, false);
    const std::string text(trim(field.text()));
    if (text.empty()) {
        if (edited) {
            markChanged();
        }
        return true;
    }
    field.setText(text);
    return false;
}

void frmMain::txtCNS_LostFocus() {
    if (!leaveBlank(txtCNS)) {
        if (outputFolderExists(txtCNS.text())) {
            markChanged();
        } else {
            refuse(txtCNS, "The " + quoted(txtCNS.text()) + " folder does not exist.");
        }
    }
    EnableOK();
}

void frmMain::txtAliases_LostFocus() {
    if (leaveFile(txtAliases, "Aliases")) {
        markChanged();
    }
    EnableOK();
}

void frmMain::txtCFG_LostFocus() {
    if (leaveFile(txtCFG, "configuration")) {
        GetCFGValues();
        markChanged();
    }
    EnableOK();
}

// True when the field, which is being left, names an existing file.
bool frmMain::leaveFile(TextBox& field, std::string_view what) {
    if (leaveBlank(field)) {
        return false;
    }
    if (!hasBackslash(field.text())) {
        field.setText(program_.sAppFolder + field.text());
    }
    if (fileExists(field.text())) {
        return true;
    }
    refuse(field,
           "The " + std::string(what) + " file " + quoted(field.text()) + " does not exist.");
    return false;
}

void frmMain::refuse(TextBox& field, std::string_view message) {
    markFieldEdited(); // closing must still offer to save what was typed
    sendBack(services_.desktop, field, message);
}

// The event names the key, not the character: typing the digit 8 takes that away as well.
void frmMain::txtCNSExt_KeyUp(int keyCode) {
    if (keyCode != Key::eight) {
        return;
    }
    services_.desktop.show({.text = R"(Please do not use the wildcard "*" character.)",
                            .title = std::string(applicationTitle)});
    std::string text = txtCNSExt.text();
    const int caret = txtCNSExt.selStart();
    if (caret > 0) {
        text.erase(static_cast<std::size_t>(caret) - 1, 1);
        txtCNSExt.setText(text);
        txtCNSExt.select(caret - 1, 0);
    }
}

} // namespace tarnwick
