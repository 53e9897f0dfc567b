// What the three buttons below right do: run the batch, write it into a file, cancel or close.

#include "common/text.hpp"
#include "ui/forms/keys.hpp"
#include "ui/main/frm_main.hpp"
#include "ui/main/output_rows.hpp"

#include <cmath>

namespace tarnwick {
namespace {

constexpr std::string_view close = "Close";
constexpr std::string_view cancel = "Cancel";
constexpr std::string_view batchFiles = "Batch File (*.bat)|*.bat|All Files (*.*)|*.*";

} // namespace

// Only one run at a time: both would wait for the same marker file, and the one that sees it first
// deletes it. Nor while a folder is being listed: the selected files may be another folder's.
void frmMain::cmdOK_Click() {
    if (run_ || listing_) {
        return;
    }
    clearStatusAndCommit();
    RunWindow& window = *this;
    run_.emplace(RunServices{.files = services_.files,
                             .desktop = services_.desktop,
                             .interpreter = services_.interpreter,
                             .events = services_.events,
                             .clock = services_.clock},
                 program_.sTempFolder, window, leftBatch_);
    run_->execute();
    run_.reset();
}

// While a run goes on, this writes the batch that the window shows now and leaves the run alone.
void frmMain::cmdCreateBatFile_Click() {
    if (listing_) {
        return;
    }
    clearStatusAndCommit();
    if (!validate()) {
        return;
    }
    const auto chosen = services_.desktop.chooseFile({.kind = FileDialog::Kind::Save,
                                                      .title = "Save Batch File",
                                                      .filter = std::string(batchFiles)});
    if (chosen && !chosen->empty()) {
        const RunJob batch = job();
        batchExport_.write(batch.definition, batch.records, *chosen);
    }
}

void frmMain::cmdCancel_Click() {
    if (equalIgnoringCase(cmdCancel.caption(), cancel)) {
        if (run_) {
            run_->cancel();
        }
    } else {
        unload();
    }
}

// What is checked before the batch is run, or written into a file.
bool frmMain::validate() {
    BatchDefinition shown = definition();
    const auto fault = validateBatch(
        shown,
        {.files = services_.files,
         .desktop = services_.desktop,
         .showOptions =
             [this, &shown] {
                 showOptions();
                 shown = definition();
             },
         .editOutputFolder = [this](Tool grid, std::size_t row) { editOutputFolder(grid, row); }});
    if (fault == BatchFault::Kind::ConfigurationFile) {
        txtCFG.selectAll();
        txtCFG.setFocus();
    }
    return !fault;
}

void frmMain::editOutputFolder(Tool grid, std::size_t row) {
    const Grid::Place folder{.row = static_cast<int>(row), .column = folderColumn};
    if (grid == Tool::CNS) {
        grdCNS.setCurrent(folder);
        cnsOutputs_.pEditGrid(Key::blank);
    } else {
        grdFiles.setCurrent(folder);
        mpOutputs_.pEditGrid(Key::blank);
    }
}

void frmMain::commitEdits() {
    pSetCellValue();
    pSetCellValueCNS();
}

void frmMain::showProgress(double percent) {
    ProgressBar1.setValue(static_cast<int>(std::lround(percent)));
}

void frmMain::offerCancel(bool offered) {
    cmdCancel.setCaption(offered ? cancel : close);
    cmdCancel.setAnswersEscape(offered);
}

} // namespace tarnwick
