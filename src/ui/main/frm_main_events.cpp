// Which procedure of the main window answers which event, and what a screen reader says.

#include "ui/forms/connect.hpp"
#include "ui/main/frm_main.hpp"
#include "ui/main/output_rows.hpp"

#include <array>
#include <cstddef>
#include <initializer_list>

namespace tarnwick {

void frmMain::connectCommands() {
    const Connector connect(services_.desktop, *this);
    connect.load(&frmMain::Form_Load);
    connect(Unload, "Private Sub Form_Unload(Cancel As Integer)", &frmMain::Form_Unload);
    // Both do a part of what Form_Unload does, and report under its name.
    connect(SessionIsEnding, "Private Sub Form_Unload(Cancel As Integer)",
            &frmMain::Form_SessionIsEnding);
    connect(SessionGoesOn, "Private Sub Form_Unload(Cancel As Integer)",
            &frmMain::Form_SessionGoesOn);
    ViewFailed = [this](const std::exception_ptr& error) { Form_ViewFailed(error); };
    connect(Resize, "Private Sub Form_Resize()", &frmMain::Form_Resize);
    connect.click(mnuNewINI, &frmMain::mnuNewINI_Click);
    connect.click(mnuOpenINI, &frmMain::mnuOpenINI_Click);
    connect.click(mnuSaveINI, &frmMain::mnuSaveINI_Click);
    connect.click(mnuSaveAsINI, &frmMain::mnuSaveAsINI_Click);
    connect.click(mnuExit, &frmMain::mnuExit_Click);
    connect.click(mnuOptions, &frmMain::mnuOptions_Click);
    connect.click(mnuHelpTarnwick, &frmMain::mnuHelpTarnwick_Click);
    connect.click(mnuHelpCNS, &frmMain::mnuHelpCNS_Click);
    connect.click(mnuHelpMP, &frmMain::mnuHelpMP_Click);
    connect.click(mnuAbout, &frmMain::mnuAbout_Click);
    connect.change(cboLanguage, &frmMain::cboLanguage_Change);
    connect.click(cboLanguage, &frmMain::cboLanguage_Click);
    connect.click(cmdOK, &frmMain::cmdOK_Click);
    connect.click(cmdCreateBatFile, &frmMain::cmdCreateBatFile_Click);
    connect.click(cmdCancel, &frmMain::cmdCancel_Click);
}

void frmMain::connectFields() {
    const Connector connect(services_.desktop, *this);
    connect.click(chkCNS, &frmMain::chkCNS_Click);
    connect.click(chkMP, &frmMain::chkMP_Click);
    connect.click(chkAliases, &frmMain::chkAliases_Click);
    connect.click(chkCFG, &frmMain::chkCFG_Click);
    connect.click(chkfixdoc, &frmMain::chkfixdoc_Click);
    connect.click(cmdAliases, &frmMain::cmdAliases_Click);
    connect.click(cmdCNS, &frmMain::cmdCNS_Click);
    // These two go by older names in reports, which is kept.
    connect(cmdCFG.Click, "Private Sub cmdMPEXE_Click()", &frmMain::cmdCFG_Click);
    connect(cmdOutputFolder.Click, "Private Sub cmdEditFolder_Click()",
            &frmMain::cmdOutputFolder_Click);
    connect.change(txtCNS, &frmMain::txtCNS_Change);
    connect.change(txtAliases, &frmMain::txtAliases_Change);
    connect.change(txtCFG, &frmMain::txtCFG_Change);
    connect.lostFocus(txtCNS, &frmMain::txtCNS_LostFocus);
    connect.lostFocus(txtAliases, &frmMain::txtAliases_LostFocus);
    connect.lostFocus(txtCFG, &frmMain::txtCFG_LostFocus);
    connect.change(txtCNSExt, &frmMain::txtCNSExt_Change);
    connect(txtCNSExt.KeyUp, "Private Sub txtCNSExt_KeyUp", &frmMain::txtCNSExt_KeyUp);
}

void frmMain::connectSelection() {
    const Connector connect(services_.desktop, *this);
    connect.change(txtInput, &frmMain::txtInput_Change);
    connect.change(txtInExt, &frmMain::txtInExt_Change);
    connect.lostFocus(txtInput, &frmMain::txtInput_LostFocus);
    connect.lostFocus(txtInExt, &frmMain::txtInExt_LostFocus);
    connect.click(cmdInput, &frmMain::cmdInput_Click);
    connect(FunctionKey, "Private Sub Form_KeyDown(KeyCode As Integer, Shift As Integer)",
            &frmMain::Form_FunctionKey);
    connect.click(lstAvailable, &frmMain::lstAvailable_Click);
    connect.doubleClick(lstAvailable, &frmMain::lstAvailable_DblClick);
    connect.click(lstSelected, &frmMain::lstSelected_Click);
    connect.doubleClick(lstSelected, &frmMain::lstSelected_DblClick);
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
        connect.gotFocus(*control, &frmMain::clearStatusAndCommit);
    }
    for (Button& button : cmdSelectFiles) {
        connect(button.GotFocus, "Private Sub cmdSelectFiles_GotFocus(Index As Integer)",
                &frmMain::clearStatusAndCommit);
    }
    connect.gotFocus(lstAvailable, &frmMain::lstAvailable_GotFocus);
    connect.gotFocus(lstSelected, &frmMain::lstSelected_GotFocus);
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

// Where the focus goes when the control that has it is switched off.
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

// The controls by which the user corrects a field, or switches it off.
void frmMain::setFieldHelpers() {
    txtCNS.putOffCheckFor({&cmdCNS, &chkCNS});
    txtAliases.putOffCheckFor({&cmdAliases, &chkAliases, &chkCNS});
    txtCFG.putOffCheckFor({&cmdCFG, &chkCFG});
    txtInput.putOffCheckFor({&cmdInput});
}

} // namespace tarnwick
