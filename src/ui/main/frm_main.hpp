#pragma once

#include "definition/batch_definition.hpp"
#include "processing/batch_export.hpp"
#include "processing/interactive_run.hpp"
#include "processing/validation.hpp"
#include "ui/forms/button.hpp"
#include "ui/forms/check_box.hpp"
#include "ui/forms/combo_box.hpp"
#include "ui/forms/file_list.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/grid.hpp"
#include "ui/forms/indicators.hpp"
#include "ui/forms/list_box.hpp"
#include "ui/forms/status_bar.hpp"
#include "ui/forms/text_box.hpp"
#include "ui/main/main_services.hpp"
#include "ui/main/output_grid_editor.hpp"

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// The main window. It owns the one batch definition of the program: a setting that has a control
// here is held by that control alone, any other by a member. Whoever changes the definition takes
// it, changes it and shows it; a single setting without a control is changed in the member.
class frmMain final : public Form, private RunWindow {
  public:
    explicit frmMain(MainServices services);

    // The definition as the window shows it now, without a cell that is still being edited.
    [[nodiscard]] BatchDefinition definition() const;
    // Makes it the program's definition and shows it. Lists no folder, reads no file and marks
    // nothing as changed.
    void showDefinition(const BatchDefinition& definition);

    // Moves entries between the two lists; `Index` is the button's, from 1 (">") to 4 ("<<").
    void cmdSelectFiles_Click(int Index);

    // The one rule for the two big buttons, and the one for the four between the lists.
    void EnableOK();
    void EnableMove();

    // Commit an edit that is going on in a grid.
    void pSetCellValue() { mpOutputs_.pSetCellValue(); }
    void pSetCellValueCNS() { cnsOutputs_.pSetCellValue(); }

    MenuItem mnuFile{*this, "mnuFile", "&File"};
    MenuItem mnuNewINI{mnuFile, "mnuNewINI", "&New INI File..."};
    MenuItem mnuBar3{mnuFile, "mnuBar3", "-"};
    MenuItem mnuOpenINI{mnuFile, "mnuOpenINI", "&Open INI File..."};
    MenuItem mnuBar1{mnuFile, "mnuBar1", "-"};
    MenuItem mnuSaveINI{mnuFile, "mnuSaveINI", "&Save INI File"};
    MenuItem mnuSaveAsINI{mnuFile, "mnuSaveAsINI", "Save INI File &As..."};
    MenuItem mnuBar2{mnuFile, "mnuBar2", "-"};
    MenuItem mnuExit{mnuFile, "mnuExit", "E&xit"};
    MenuItem mnuTools{*this, "mnuTools", "&Tools"};
    MenuItem mnuOptions{mnuTools, "mnuOptions", "&Options..."};
    MenuItem mnuHelp{*this, "mnuHelp", "&Help"};
    MenuItem mnuHelpTarnwick{mnuHelp, "mnuHelpTarnwick", "&Tarnwick Help..."};
    MenuItem mnuBar4{mnuHelp, "mnuBar4", "-"};
    MenuItem mnuHelpCNS{mnuHelp, "mnuHelpCNS", "&CNS Help..."};
    MenuItem mnuHelpMP{mnuHelp, "mnuHelpMP", "&MP Help..."};
    MenuItem mnuBar5{mnuHelp, "mnuBar5", "-"};
    MenuItem mnuAbout{mnuHelp, "mnuAbout", "&About Tarnwick..."};

    // From here on in the order of the focus, which follows the eye. What floats over a grid comes
    // before it, for that is its place on the screen as well.
    Line linTop{*this, "linTop"};
    Line linTop2{*this, "linTop2"};

    Frame fraLanguage{*this, "fraLanguage", "&Language"};
    ComboBox cboLanguage{
        *this, "cboLanguage", {"English", "Spanish", "Catalan", "Indonesian", "French"}};

    Frame fraCNS{*this, "fraCNS", "   "};
    CheckBox chkCNS{*this, "chkCNS", "&CNS (pre-parser)"};
    Label lblCNS{*this, "lblCNS", "CNS &output folder / MP input folder:"};
    TextBox txtCNS{*this, "txtCNS"};
    Button cmdCNS{*this, "cmdCNS", "Browse..."};
    Label lblCNSExt{*this, "lblCNSExt", "Ex&tension:"};
    TextBox txtCNSExt{*this, "txtCNSExt"};
    CheckBox chkAliases{*this, "chkAliases", "&Aliases file:"};
    TextBox txtAliases{*this, "txtAliases"};
    Button cmdAliases{*this, "cmdAliases", "Browse..."};
    Label lblCNSFiles{*this, "lblCNSFiles", "Output de&finition:"};
    TextBox txtEditCNS{*this, "txtEditCNS"};
    Button cmdEditCNS{*this, "cmdEditCNS", "..."};
    Grid grdCNS{*this, "grdCNS"};

    Frame fraMP{*this, "fraMP", "   "};
    CheckBox chkMP{*this, "chkMP", "&MP"};
    CheckBox chkfixdoc{*this, "chkfixdoc", "&Run special clean-up on DOCUMENT.aml output"};
    Button cmdOutputFolder{*this, "cmdOutputFolder", "Set A&ll Folders..."};
    Label lblMPFiles{*this, "lblMPFiles", "Output &definition:"};
    TextBox txtEdit{*this, "txtEdit"};
    Button cmdEdit{*this, "cmdEdit", "..."};
    Grid grdFiles{*this, "grdFiles"};

    CheckBox chkCFG{*this, "chkCFG", "Confi&guration file:"};
    TextBox txtCFG{*this, "txtCFG"};
    Button cmdCFG{*this, "cmdCFG", "Browse..."};

    Frame fraInput{*this, "fraInput", "Select metadata records"};
    Label lblMrSid{*this, "lblMrSid", "&Input folder:"};
    TextBox txtInput{*this, "txtInput"};
    Button cmdInput{*this, "cmdInput", "Browse..."};
    Label lblInExt{*this, "lblInExt", "Input file &extension(s):"};
    TextBox txtInExt{*this, "txtInExt"};
    Label lblAvailable{*this, "lblAvailable", "&Available files:"};
    ListBox lstAvailable{*this, "lstAvailable"};
    std::array<Button, 4> cmdSelectFiles{{{*this, "cmdSelectFiles1", ">"},
                                          {*this, "cmdSelectFiles2", ">>"},
                                          {*this, "cmdSelectFiles3", "<"},
                                          {*this, "cmdSelectFiles4", "<<"}}};
    Label lblSelected{*this, "lblSelected", "&Selected files:"};
    ListBox lstSelected{*this, "lstSelected"};

    Button cmdCreateBatFile{*this, "cmdCreateBatFile", "Create &Batch File..."};
    Button cmdOK{*this, "cmdOK", "Execute"};
    Button cmdCancel{*this, "cmdCancel", "Close", Button::Role::Cancel};

    StatusBar StatusBar1{*this, "StatusBar1", 3};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};

  private:
    static constexpr Size mainWindow{.width = 12735, .height = 8460}; // never another

    // Start-up, the end, and the commands of the menus.
    void Form_Load();
    void Form_Unload();
    void Form_SessionIsEnding();
    void Form_SessionGoesOn() { bAskedAtSessionEnd_ = false; }
    void Form_ViewFailed(const std::exception_ptr& error);
    void mnuNewINI_Click();
    void mnuOpenINI_Click();
    void mnuSaveINI_Click();
    void mnuSaveAsINI_Click();
    void mnuExit_Click() { unload(); }
    void mnuOptions_Click();
    void mnuHelpTarnwick_Click();
    void mnuHelpCNS_Click();
    void mnuHelpMP_Click();
    void mnuAbout_Click();
    void cboLanguage_Change();
    void cboLanguage_Click() { markChanged(); }
    [[nodiscard]] bool findTools();
    [[nodiscard]] bool findTool(std::string_view tool, std::string& executable);
    // What became of them. NotSaved: the user wanted them saved, and that failed; Cancelled: they
    // were to go into another file, and the user named none.
    enum class Changes { None, Saved, Declined, NotSaved, Cancelled };
    // New and Open must stop, or they would be lost.
    [[nodiscard]] static bool stillToSave(Changes changes) noexcept {
        return changes == Changes::NotSaved || changes == Changes::Cancelled;
    }
    [[nodiscard]] Changes beginFileCommand();
    [[nodiscard]] Changes offerToSave();
    void keepWork();
    void storeSettings();
    enum class SavedAs { Written, NotWritten, Cancelled };
    SavedAs saveAs();
    [[nodiscard]] BatchDefinition newDefinition(std::string_view sINIFile);
    void storeNow(std::string_view sINIFile, std::string_view procedure);
    void nameINIFile();

    // The run and the batch file.
    void cmdOK_Click();
    void cmdCreateBatFile_Click();
    void cmdCancel_Click();
    [[nodiscard]] bool validate();
    void editOutputFolder(Tool grid, std::size_t row);
    [[nodiscard]] bool isReadyToRun() override { return validate(); }
    void commitEdits() override;
    [[nodiscard]] RunJob job() override {
        return {.definition = definition(), .records = lstSelected.items()};
    }
    void switchLoggingOff() override { program_.bCommandLineLogging = false; }
    void showStatus(std::string_view text) override { StatusBar1.setPanelText(1, text); }
    void showProgressBar(bool visible) override { ProgressBar1.setVisible(visible); }
    void showProgress(double percent) override;
    void showBusy(bool busy) override {
        setMousePointer(busy ? MousePointer::Busy : MousePointer::Default);
    }
    void offerCancel(bool offered) override;

    // The definition and the window.
    [[nodiscard]] bool ReadINIFile(BatchDefinition& read);
    bool SaveINIFile();
    void MyDefaultSettings();
    void LoadDefaultGridSettings();
    void GetCFGValues();
    void setDefinition(const BatchDefinition& definition);
    void showOutputRows(const BatchDefinition& definition);
    void showWhatWasRead(const BatchDefinition& read);
    void showOptions();
    void markChanged() noexcept;
    void markFieldEdited() noexcept;

    // Fields and toggles.
    void chkCNS_Click();
    void chkMP_Click();
    void chkAliases_Click();
    void chkCFG_Click();
    // The one check box that neither clears the status nor commits an edit.
    void chkfixdoc_Click() { markChanged(); }
    void cmdAliases_Click();
    void cmdCFG_Click();
    void cmdCNS_Click();
    void cmdOutputFolder_Click();
    void textEdited();
    void txtCNS_Change();
    void txtAliases_Change() { textEdited(); }
    void txtCFG_Change() { textEdited(); }
    void txtCNS_LostFocus();
    void txtAliases_LostFocus();
    void txtCFG_LostFocus();
    // Nothing is checked when this field is left, so the change is marked here.
    void txtCNSExt_Change() { markChanged(); }
    void txtCNSExt_KeyUp(int keyCode);
    void enableCNS();
    void enableMP();
    void enableAll();
    void labelCNSFolder();
    [[nodiscard]] std::optional<std::string> browse(const TextBox& field, std::string_view title,
                                                    std::string_view filter);
    [[nodiscard]] bool take(TextBox& field, std::string_view chosen);
    [[nodiscard]] bool leaveBlank(TextBox& field);
    // Whether there is such a tool, configuration file or aliases file.
    [[nodiscard]] bool fileExists(std::string_view path) const;
    // Whether there is such a folder for the outputs.
    [[nodiscard]] bool outputFolderExists(std::string_view folder) const;
    [[nodiscard]] bool leaveFile(TextBox& field, std::string_view what);
    void refuse(TextBox& field, std::string_view message);

    // The selection of the input files.
    void txtInput_Change();
    void txtInput_LostFocus();
    void txtInExt_Change();
    void txtInExt_LostFocus();
    void cmdInput_Click();
    void lstAvailable_Click();
    void lstAvailable_DblClick();
    void lstAvailable_GotFocus();
    void lstSelected_Click();
    void lstSelected_DblClick();
    void lstSelected_GotFocus();
    void LoadFiles();
    void UpdateListBoxScrollBars();
    void listInputFolder();
    void relist();
    void forgetFiles();
    void thenEnableOK(const std::function<void()>& body);
    [[nodiscard]] bool mayExecute() const;

    void Form_FunctionKey(int keyCode);
    void Form_Resize();
    void layOut(Size content);
    void layOutCNS();
    void layOutMP(int rightEdge);
    void layOutInput(int bottom);
    void layOutLists(int bottom);
    void layOutButtons(int rightEdge, int bottom);
    void layOutStatus(Size content, int statusHeight);

    void connectCommands();
    void connectFields();
    void connectSelection();
    void connectGotFocus();
    void setAccessibleNames();
    void setFocusSuccessors();
    void setFieldHelpers();
    void clearStatusAndCommit();
    [[nodiscard]] std::string pickFolder(std::string_view title, std::string_view startFolder);
    [[nodiscard]] OutputGridEditor::Window outputWindow();

    MainServices services_;
    FileList filAvailable_;
    ProgramSettings program_; // of the definition, what has no control here
    OutputGridEditor cnsOutputs_;
    OutputGridEditor mpOutputs_;
    BatchExport batchExport_;
    LeftBatch leftBatch_;               // of the last run, where that was stopped
    std::optional<InteractiveRun> run_; // while one goes on
    bool bInputChanged_ = false;        // the folder has been edited since it was listed
    bool bInExtChanged_ = false;        // so have the extensions
    bool bFieldEdited_ = false;         // a field is being edited, and has not been left yet
    bool bINIFileUnread_ = false;       // what is in the window has never been in sINIFile
    bool bAskedAtSessionEnd_ = false;   // whether to save what nobody has changed since
    bool listing_ = false;              // the selected files may be those of another folder
};

} // namespace tarnwick
