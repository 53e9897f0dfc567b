#include "ui/main/frm_main.hpp"

#include "common/mod_main.hpp"
#include "ui/main/output_rows.hpp"

#include <utility>

namespace tarnwick {
namespace {

// As it comes, before anybody has typed an extension.
constexpr std::string_view designPattern = "*.sid;*.tif";
constexpr std::string_view extensionHint = "*.met;*.txt";

} // namespace

frmMain::frmMain(MainServices services)
    : Form("frmMain", applicationTitle),
      services_(std::move(services)),
      filAvailable_(services_.files, designPattern),
      cnsOutputs_({.grid = grdCNS, .txtEdit = txtEditCNS, .cmdEdit = cmdEditCNS}, "CNS",
                  services_.desktop, outputWindow()),
      mpOutputs_({.grid = grdFiles, .txtEdit = txtEdit, .cmdEdit = cmdEdit}, "", services_.desktop,
                 outputWindow()),
      batchExport_({.files = services_.files,
                    .desktop = services_.desktop,
                    .interpreter = services_.interpreter,
                    .clock = services_.clock}) {
    txtInExt.setHint(extensionHint);
    ProgressBar1.setVisible(false);
    // Escape must not cost a long selection: closing asks about settings, not about that.
    cmdCancel.setAnswersEscape(false);
    BatchDefinition first;
    tarnwick::LoadDefaultGridSettings(first);
    showDefinition(first);
    setAccessibleNames();
    setFocusSuccessors();
    setFieldHelpers();
    connectCommands();
    connectFields();
    connectSelection();
    connectGotFocus();
    layOut({.width = mainWindow.width - windowFrame.width,
            .height = mainWindow.height - windowFrame.height});
    EnableMove();
}

BatchDefinition frmMain::definition() const {
    BatchDefinition shown;
    static_cast<ProgramSettings&>(shown) = program_;
    shown.iProcessMP = chkMP.value();
    shown.iProcessCNS = chkCNS.value();
    shown.sInputFolder = txtInput.text();
    shown.sInputExtensions = txtInExt.text();
    shown.sCNSOutputFolder = txtCNS.text();
    shown.sCNSOutputExtension = txtCNSExt.text();
    shown.bUseAliases = chkAliases.value();
    shown.sAliasesFile = txtAliases.text();
    shown.bUseConfigFile = chkCFG.value();
    shown.sConfigFile = txtCFG.text();
    takeOutputs(grdFiles, shown.MPOutputs);
    takeOutputs(grdCNS, shown.CNSOutputs);
    shown.iFixDoc = static_cast<std::int16_t>(chkfixdoc.value());
    shown.sLanguage = cboLanguage.text();
    return shown;
}

void frmMain::showDefinition(const BatchDefinition& definition) {
    setDefinition(definition);
    enableAll();
    EnableOK();
}

void frmMain::clearStatusAndCommit() {
    StatusBar1.setPanelText(1, "");
    commitEdits();
}

std::string frmMain::pickFolder(std::string_view title, std::string_view startFolder) {
    return services_.pickFolder ? services_.pickFolder(title, startFolder) : std::string();
}

OutputGridEditor::Window frmMain::outputWindow() {
    return {.clearStatusAndCommit = [this] { clearStatusAndCommit(); },
            .settingsChanged = [this] { markChanged(); },
            .EnableOK = [this] { EnableOK(); },
            .pickFolder =
                [this](std::string_view title, std::string_view startFolder) {
                    return pickFolder(title, startFolder);
                }};
}

} // namespace tarnwick
