#include "ui/dialogs/frm_open_folder.hpp"

#include "common/full_path.hpp"
#include "common/left_out_report.hpp"
#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "platform/run_time_error.hpp"
#include "ui/dialogs/send_back.hpp"
#include "ui/forms/connect.hpp"

#include <utility>

namespace tarnwick {
namespace {

constexpr std::string_view formName = "frmOpenFolder";
constexpr std::string_view warningTitle = "Warning!";

} // namespace

frmOpenFolder::frmOpenFolder(Files& files, Desktop& desktop, AskForText askForText)
    : Form(formName, "Open Folder"),
      drvPath(*this, "drvPath", files),
      DirPath(*this, "DirPath", files),
      files_(files),
      desktop_(desktop),
      askForText_(std::move(askForText)) {
    txtPath.setAccessibleName("Path");
    connectEvents();
}

void frmOpenFolder::connectEvents() {
    const Connector connect(desktop_, *this);
    connect.load(&frmOpenFolder::Form_Load);
    connect.change(drvPath, &frmOpenFolder::drvPath_Change);
    connect.change(DirPath, &frmOpenFolder::DirPath_Change);
    connect.change(txtPath, &frmOpenFolder::txtPath_Change);
    connect.lostFocus(txtPath, &frmOpenFolder::txtPath_LostFocus);
    connect.click(cmdNew, &frmOpenFolder::cmdNew_Click);
    connect.click(cmdOK, &frmOpenFolder::cmdOK_Click);
    connect.click(cmdCancel, &frmOpenFolder::cmdCancel_Click);
    // Trying once more tells the user why the folder does not open.
    DirPath.Refused = [this](const std::string& path) {
        trap(desktop_, formName, "Private Sub DirPath_Change()", [&] { DirPath.setPath(path); });
    };
}

void frmOpenFolder::Form_Load() {
    centreOnScreen();
    if (FolderExists(files_, inFull(startFolder_))) {
        showFolder(startFolder_);
    }
    DirPath_Change(); // wherever the lists start, the field says it
}

// The folder list goes first: a change of drive then finds it on that drive already, and leaves it
// where it is.
void frmOpenFolder::showFolder(std::string_view folder) {
    const std::string path(folder); // may be the field's text, which follows the list
    DirPath.setPath(path);
    drvPath.setDrive(path);
}

void frmOpenFolder::drvPath_Change() {
    const std::string drive = drvPath.drive();
    if (drive == driveOf(DirPath.path())) {
        return;
    }
    // A drive that is not ready is not shown as the chosen one.
    drvPath.setDrive(DirPath.path());
    DirPath.setPath(drive);
    drvPath.setDrive(drive);
}

void frmOpenFolder::DirPath_Change() {
    txtPath.setText(DirPath.path());
    txtPath.selectAll();
    tellLeftOut(desktop_, DirPath.takeLeftOut(), "folder", DirPath.path());
}

void frmOpenFolder::txtPath_LostFocus() {
    if (trim(txtPath.text()).empty()) {
        txtPath.setText(DirPath.path());
    } else if (bPathChanged_ && acceptPath()) {
        showFolder(txtPath.text());
    }
}

// What is checked, shown and given back, for the system reads some paths otherwise: "C:records" as
// in the current folder of that drive. Empty where nothing is named.
std::string frmOpenFolder::inFull(std::string_view path) const {
    return trim(path).empty() ? std::string() : fullPath(path, files_.currentFolder());
}

// Whether the field names a folder; else the user is told, and is back in the field.
bool frmOpenFolder::acceptPath() {
    txtPath.setText(trim(txtPath.text()));
    if (FolderExists(files_, inFull(txtPath.text()))) {
        return true;
    }
    sendBack(desktop_, txtPath, "Invalid Folder!\rPlease enter a valid Folder.", warningTitle);
    return false;
}

void frmOpenFolder::cmdNew_Click() {
    if (!acceptPath()) {
        return;
    }
    const std::string path = txtPath.text();
    const std::string answer =
        askForText_("Current Path:  " + path + "\r\n\r\nNew Folder Name:", "New Folder");
    const std::string_view name = trim(answer);
    if (name.empty()) {
        return;
    }
    const std::string folder = withBackslash(inFull(path)).append(name);
    createIfPossible(folder);
    if (!FolderExists(files_, folder)) {
        showWarning(desktop_, "Could not create the new folder " + folder, warningTitle);
        return;
    }
    showFolder(folder);
}

// Whether the folder is there afterwards is what counts: one that was there before is fine too.
void frmOpenFolder::createIfPossible(std::string_view folder) {
    try {
        files_.createFolder(folder);
    } catch (const RunTimeError&) {
        return;
    }
}

// Enter presses it without leaving the field, where a path may still count from the current folder.
void frmOpenFolder::cmdOK_Click() {
    if (acceptPath()) {
        result_ = inFull(txtPath.text());
        hide();
    }
}

std::string pickFolder(FormPresenter& presenter, Files& files, Desktop& desktop,
                       std::string_view title, std::string_view startFolder) {
    frmOpenFolder form(files, desktop, askingIn(presenter));
    form.setStartFolder(startFolder);
    if (!title.empty()) {
        form.setCaption(title);
    }
    presenter.showModal(form);
    std::string chosen = form.result();
    form.unload();
    return chosen;
}

} // namespace tarnwick
