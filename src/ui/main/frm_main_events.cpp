// Which procedure of the main window answers which event, and what a screen reader says.

#include "common/trap.hpp"
#include "ui/forms/connect.hpp"
#include "ui/main/frm_main.hpp"
#include "ui/main/output_rows.hpp"

#include <array>
#include <cstddef>
#include <initializer_list>

namespace tarnwick {

void frmMain::connectCommands() {
    const Connector connect(services_.desktop, *this);
    connect(Load, "Private Sub Form_Load()", &frmMain::Form_Load);
    connect(Unload, "Private Sub Form_Unload(Cancel As Integer)", &frmMain::Form_Unload);
    // Both are parts of it: what they ask, it asks no more.
    connect(SessionIsEnding, "Private Sub Form_Unload(Cancel As Integer)",
            &frmMain::Form_SessionIsEnding);
    connect(SessionGoesOn, "Private Sub Form_Unload(Cancel As Integer)",
            &frmMain::Form_SessionGoesOn);
    ViewFailed = [this](const std::exception_ptr& error) { Form_ViewFailed(error); };
    connect(Resize, "Private Sub Form_Resize()", &frmMain::Form_Resize);
    connect(mnuNewINI.Click, "Private Sub mnuNewINI_Click()", &frmMain::mnuNewINI_Click);
    connect(mnuOpenINI.Click, "Private Sub mnuOpenINI_Click()", &frmMain::mnuOpenINI_Click);
    connect(mnuSaveINI.Click, "Private Sub mnuSaveINI_Click()", &frmMain::mnuSaveINI_Click);
    connect(mnuSaveAsINI.Click, "Private Sub mnuSaveAsINI_Click()", &frmMain::mnuSaveAsINI_Click);
    connect(mnuExit.Click, "Private Sub mnuExit_Click()", &frmMain::mnuExit_Click);
    connect(mnuOptions.Click, "Private Sub mnuOptions_Click()", &frmMain::mnuOptions_Click);
    connect(mnuHelpTarnwick.Click, "Private Sub mnuHelpTarnwick_Click()",
            &frmMain::mnuHelpTarnwick_Click);
    connect(mnuHelpCNS.Click, "Private Sub mnuHelpCNS_Click()", &frmMain::mnuHelpCNS_Click);
    connect(mnuHelpMP.Click, "Private Sub mnuHelpMP_Click()", &frmMain::mnuHelpMP_Click);
    connect(mnuAbout.Click, "Private Sub mnuAbout_Click()", &frmMain::mnuAbout_Click);
    connect(cboLanguage.Change, "Private Sub cboLanguage_Change()", &frmMain::cboLanguage_Change);
    connect(cboLanguage.Click, "Private Sub cboLanguage_Click()", &frmMain::cboLanguage_Click);
    connect(cmdOK.Click, "Private Sub cmdOK_Click()", &frmMain::cmdOK_Click);
    connect(cmdCreateBatFile.Click, "Private Sub cmdCreateBatFile_Click()",
            &frmMain::cmdCreateBatFile_Click);
    connect(cmdCancel.Click, "Private Sub cmdCancel_Click()", &frmMain::cmdCancel_Click);
}

void frmMain::connectFields() {
    const Connector connect(services_.desktop, *this);
    connect(chkCNS.Click, "Private Sub chkCNS_Click()", &frmMain::chkCNS_Click);
    connect(chkMP.Click, "Private Sub chkMP_Click()", &frmMain::chkMP_Click);
    connect(chkAliases.Click, "Private Sub chkAliases_Click()", &frmMain::chkAliases_Click);
    connect(chkCFG.Click, "Private Sub chkCFG_Click()", &frmMain::chkCFG_Click);
    connect(chkfixdoc.Click, "Private Sub chkfixdoc_Click()", &frmMain::chkfixdoc_Click);
    connect(cmdAliases.Click, "Private Sub cmdAliases_Click()", &frmMain::cmdAliases_Click);
    connect(cmdCNS.Click, "Private Sub cmdCNS_Click()", &frmMain::cmdCNS_Click);
    // These two go by older names in reports, which is kept.
    connect(cmdCFG.Click, "Private Sub cmdMPEXE_Click()", &frmMain::cmdCFG_Click);
    connect(cmdOutputFolder.Click, "Private Sub cmdEditFolder_Click()",
            &frmMain::cmdOutputFolder_Click);
    connect(txtCNS.Change, "Private Sub txtCNS_Change()", &frmMain::txtCNS_Change);
    connect(txtAliases.Change, "Private Sub txtAliases_Change()", &frmMain::txtAliases_Change);
    connect(txtCFG.Change, "Private Sub txtCFG_Change()", &frmMain::txtCFG_Change);
    connect(txtCNS.LostFocus, "Private Sub txtCNS_LostFocus()", &frmMain::txtCNS_LostFocus);
    connect(txtAliases.LostFocus, "Private Sub txtAliases_LostFocus()",
            &frmMain::txtAliases_LostFocus);
    connect(txtCFG.LostFocus, "Private Sub txtCFG_LostFocus()", &frmMain::txtCFG_LostFocus);
    connect(txtCNSExt.Change, "Private Sub txtCNSExt_Change()", &frmMain::txtCNSExt_Change);
    connect(txtCNSExt.KeyUp, "Private Sub txtCNSExt_KeyUp", &frmMain::txtCNSExt_KeyUp);
}

void frmMain::connectSelection() {
    const Connector connect(services_.desktop, *this);
    connect(txtInput.Change, "Private Sub txtInput_Change()", &frmMain::txtInput_Change);
    connect(txtInExt.Change, "Private Sub txtInExt_Change()", &frmMain::txtInExt_Change);
    connect(txtInput.LostFocus, "Private Sub txtInput_LostFocus()", &frmMain::txtInput_LostFocus);
    connect(txtInExt.LostFocus, "Private Sub txtInExt_LostFocus()", &frmMain::txtInExt_LostFocus);
    connect(cmdInput.Click, "Private Sub cmdInput_Click()", &frmMain::cmdInput_Click);
    connect(FunctionKey, "Private Sub Form_KeyDown(KeyCode As Integer, Shift As Integer)",
            &frmMain::Form_FunctionKey);
    connect(lstAvailable.Click, "Private Sub lstAvailable_Click()", &frmMain::lstAvailable_Click);
    connect(lstAvailable.DblClick, "Private Sub lstAvailable_DblClick()",
            &frmMain::lstAvailable_DblClick);
    connect(lstSelected.Click, "Private Sub lstSelected_Click()", &frmMain::lstSelected_Click);
    connect(lstSelected.DblClick, "Private Sub lstSelected_DblClick()",
            &frmMain::lstSelected_DblClick);
    for (std::size_t i = 0; i < cmdSelectFiles.size(); ++i) {
        cmdSelectFiles.at(i).Click = [this, i] { cmdSelectFiles_Click(static_cast<int>(i) + 1); };
    }
    lstAvailable.Remeasured = [this] { UpdateListBoxScrollBars(); };
    lstSelected.Remeasured = [this] { UpdateListBoxScrollBars(); };
}

void frmMain::connectGotFocus() {
    const Connector connect(services_.desktop, *this);
    for (Control* const control : std::initializer_list<Control*>{
             &cboLanguage,     &chkCNS,     &txtCNS,           &cmdCNS, &txtCNSExt,
             &chkAliases,      &txtAliases, &cmdAliases,       &chkMP,  &chkfixdoc,
             &cmdOutputFolder, &chkCFG,     &txtCFG,           &cmdCFG, &txtInput,
             &cmdInput,        &txtInExt,   &cmdCreateBatFile, &cmdOK,  &cmdCancel}) {
        control->GotFocus = [this, procedure = "Private Sub " + control->name() + "_GotFocus()"] {
            trap(services_.desktop, name(), procedure, [this] { clearStatusAndCommit(); });
        };
    }
    for (Button& button : cmdSelectFiles) {
        connect(button.GotFocus, "Private Sub cmdSelectFiles_GotFocus(Index As Integer)",
                &frmMain::clearStatusAndCommit);
    }
    connect(lstAvailable.GotFocus, "Private Sub lstAvailable_GotFocus()",
            &frmMain::lstAvailable_GotFocus);
    connect(lstSelected.GotFocus, "Private Sub lstSelected_GotFocus()",
            &frmMain::lstSelected_GotFocus);
}

// For controls that no label of their own names, or whose caption says too little by itself.
void frmMain::setAccessibleNames() {
    cboLanguage.setAccessibleName("Language");
    cmdCNS.setAccessibleName("Browse for the CNS output folder");
    txtAliases.setAccessibleName("Aliases file");
    cmdAliases.setAccessibleName("Browse for the aliases file");
    grdCNS.setAccessibleName("CNS output definition");
    grdCNS.setTitleColumn(fileTypeColumn);
    grdFiles.setAccessibleName("MP output definition");
    grdFiles.setTitleColumn(fileTypeColumn);
    txtCFG.setAccessibleName("Configuration file");
    cmdCFG.setAccessibleName("Browse for the configuration file");
    cmdInput.setAccessibleName("Browse for the input folder");
    lstAvailable.setAccessibleName("Available files");
    lstSelected.setAccessibleName("Selected files");
    constexpr std::array<std::string_view, 4> moves{"Select the marked files", "Select all files",
                                                    "Take the marked files back",
                                                    "Take all files back"};
    for (std::size_t i = 0; i < cmdSelectFiles.size(); ++i) {
        cmdSelectFiles.at(i).setAccessibleName(moves.at(i));
    }
    StatusBar1.setAccessibleName("Status");
    ProgressBar1.setAccessibleName("Progress");
}

// Who has the focus after a control that had it was switched off.
void frmMain::setFocusSuccessors() {
    for (Control* const control : std::initializer_list<Control*>{
             &txtCNS, &cmdCNS, &txtCNSExt, &chkAliases, &txtAliases, &cmdAliases, &grdCNS}) {
        control->passFocusTo(chkCNS);
    }
    for (Control* const control :
         std::initializer_list<Control*>{&chkfixdoc, &cmdOutputFolder, &grdFiles}) {
        control->passFocusTo(chkMP);
    }
    txtCFG.passFocusTo(chkCFG);
    cmdCFG.passFocusTo(chkCFG);
    cmdSelectFiles[0].passFocusTo(lstAvailable);
    cmdSelectFiles[1].passFocusTo(lstSelected);
    cmdSelectFiles[2].passFocusTo(lstSelected);
    cmdSelectFiles[3].passFocusTo(lstAvailable);
    cmdCreateBatFile.passFocusTo(cmdCancel);
    cmdOK.passFocusTo(cmdCancel);
}

// What a user turns to who has typed something wrong into a field.
void frmMain::setFieldHelpers() {
    txtCNS.putOffCheckFor({&cmdCNS, &chkCNS});
    txtAliases.putOffCheckFor({&cmdAliases, &chkAliases, &chkCNS});
    txtCFG.putOffCheckFor({&cmdCFG, &chkCFG});
    txtInput.putOffCheckFor({&cmdInput});
}

} // namespace tarnwick
