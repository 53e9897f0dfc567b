// The selection of the input files. The lists may be long: everything is done for all entries at
// once, in proportion to their number.

#include "common/keep_only.hpp"
#include "common/left_out_report.hpp"
#include "common/mod_main.hpp"
#include "common/scoped_flag.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "processing/listing_match.hpp"
#include "ui/forms/keys.hpp"
#include "ui/main/frm_main.hpp"

#include <utility>

namespace tarnwick {
namespace {

// The place that a list box keeps free before an entry.
constexpr std::string_view beforeEntry = "  ";

} // namespace

void frmMain::txtInput_Change() {
    clearStatusAndCommit();
    bInputChanged_ = true;
    markFieldEdited();
}

void frmMain::txtInExt_Change() {
    bInExtChanged_ = true;
    markFieldEdited();
}

// Also after an error: else Execute would stay enabled for the folder before.
void frmMain::thenEnableOK(const std::function<void()>& body) {
    try {
        body();
    } catch (...) {
        EnableOK();
        throw;
    }
    EnableOK();
}

void frmMain::txtInput_LostFocus() {
    thenEnableOK([this] {
        clearStatusAndCommit();
        if (bInputChanged_ && !leaveBlank(txtInput)) {
            if (FolderExists(services_.files, txtInput.text())) {
                relist();
            } else {
                refuse(txtInput, "The " + quoted(txtInput.text()) + " folder does not exist.");
            }
        }
    });
}

void frmMain::txtInExt_LostFocus() {
    thenEnableOK([this] {
        clearStatusAndCommit();
        const bool edited = std::exchange(bFieldEdited_, false);
        if (bInExtChanged_ && FolderExists(services_.files, txtInput.text())) {
            relist();
        } else if (edited) {
            markChanged();
        }
    });
}

// F5 lists the folder again, which leaves no field and changes no setting. A folder that is not
// there is told when its field is left.
void frmMain::Form_FunctionKey(int keyCode) {
    if (keyCode != Key::f5 || listing_) {
        return;
    }
    thenEnableOK([this] {
        clearStatusAndCommit();
        const std::string folder(trim(txtInput.text()));
        if (FolderExists(services_.files, folder)) {
            if (folder != txtInput.text()) { // else the caret stays where it is
                txtInput.setText(folder);
            }
            listInputFolder();
        }
    });
}

// The settings have changed even where the folder cannot be listed.
void frmMain::relist() {
    markChanged();
    listInputFolder();
}

// For a folder that cannot be listed: the selected files are those of the folder before, and must
// not be run in this one.
void frmMain::forgetFiles() {
    lstAvailable.setItems({});
    lstSelected.setItems({});
    EnableMove();
    EnableOK();
}

void frmMain::listInputFolder() {
    filAvailable_.setPattern(txtInExt.text());
    try {
        filAvailable_.setPath(txtInput.text());
    } catch (...) {
        forgetFiles();
        throw;
    }
    bInputChanged_ = false;
    bInExtChanged_ = false;
    LoadFiles();
    EnableMove();
}

void frmMain::LoadFiles() {
    trap(services_.desktop, name(), "Private Sub LoadFiles()", [this] {
        // The field names the new folder already: what the user does now must not run the old
        // one's files in it.
        const ScopedFlag busy(listing_);
        try {
            lstAvailable.setItems({});
            services_.events.letRun();
            std::vector<std::string> listing = filAvailable_.names();
            const ListingMatch match = matchListing(listing, lstSelected.items());
            keepOnly(match.available, listing);
            lstAvailable.setItems(std::move(listing));
            lstSelected.retain(match.kept);
        } catch (...) {
            forgetFiles();
            throw;
        }
        UpdateListBoxScrollBars();
        tellLeftOut(services_.desktop, filAvailable_.leftOut(), "file", filAvailable_.path());
    });
}

void frmMain::UpdateListBoxScrollBars() {
    trap(services_.desktop, name(), "Private Sub UpdateListBoxScrollBars()", [this] {
        for (ListBox* const list : {&lstAvailable, &lstSelected}) {
            list->setHorizontalExtent(list->widestItem(beforeEntry));
        }
    });
}

void frmMain::lstAvailable_Click() {
    clearStatusAndCommit();
    EnableMove();
}

void frmMain::lstSelected_Click() {
    clearStatusAndCommit();
    EnableMove();
}

void frmMain::lstAvailable_DblClick() {
    clearStatusAndCommit();
    cmdSelectFiles_Click(1);
}

void frmMain::lstSelected_DblClick() {
    clearStatusAndCommit();
    cmdSelectFiles_Click(3);
}

void frmMain::lstAvailable_GotFocus() {
    clearStatusAndCommit();
    lstSelected.clearSelection();
    EnableMove();
}

void frmMain::lstSelected_GotFocus() {
    clearStatusAndCommit();
    lstAvailable.clearSelection();
    EnableMove();
}

void frmMain::cmdSelectFiles_Click(int Index) {
    trap(services_.desktop, name(), "Private Sub cmdSelectFiles_Click(Index As Integer)", [&] {
        clearStatusAndCommit();
        switch (Index) {
        case 1:
            lstSelected.add(lstAvailable.takeSelected());
            break;
        case 2:
            lstSelected.add(lstAvailable.takeAll());
            break;
        case 3:
            lstAvailable.add(lstSelected.takeSelected());
            break;
        case 4:
            lstAvailable.add(lstSelected.takeAll());
            break;
        default:
            services_.desktop.show({.text = "Unsupported case: " + std::to_string(Index),
                                    .title = std::string(applicationTitle)});
            break;
        }
        EnableMove();
        EnableOK();
        UpdateListBoxScrollBars();
    });
}

void frmMain::EnableMove() {
    trap(services_.desktop, name(), "Private Sub EnableMove()", [this] {
        cmdSelectFiles[0].setEnabled(lstAvailable.selectedCount() > 0);
        cmdSelectFiles[1].setEnabled(!lstAvailable.empty());
        cmdSelectFiles[2].setEnabled(lstSelected.selectedCount() > 0);
        cmdSelectFiles[3].setEnabled(!lstSelected.empty());
    });
}

void frmMain::EnableOK() {
    trap(services_.desktop, name(), "Private Sub EnableOK()", [this] {
        const bool enabled = mayExecute();
        cmdOK.setEnabled(enabled);
        cmdCreateBatFile.setEnabled(enabled);
    });
}

bool frmMain::mayExecute() const {
    if (!FolderExists(services_.files, txtInput.text()) || lstSelected.empty()) {
        return false;
    }
    if (!chkCNS.ticked() && !chkMP.ticked()) {
        return false;
    }
    if (chkCFG.ticked() && !fileExists(txtCFG.text())) {
        return false;
    }
    if (!chkCNS.ticked()) {
        return true;
    }
    return (outputFolderExists(txtCNS.text()) || program_.bCfgNamesOutput) &&
           (!chkAliases.ticked() || fileExists(txtAliases.text()));
}

} // namespace tarnwick
