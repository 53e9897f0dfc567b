#pragma once

#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "ui/dialogs/frm_input_box.hpp"
#include "ui/forms/button.hpp"
#include "ui/forms/drive_list.hpp"
#include "ui/forms/folder_list.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/text_box.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// The user chooses a folder, or makes one. The caller sets the start folder and, where it wants
// another, the caption; shows the form modally; reads the result; and unloads the form. Refers to
// its arguments, which must outlive it.
class frmOpenFolder final : public Form {
  public:
    frmOpenFolder(Files& files, Desktop& desktop, AskForText askForText);

    // Where to start; the current folder when this is empty or no folder.
    void setStartFolder(std::string_view folder) { startFolder_ = folder; }
    // The chosen folder, in full; empty until there is one.
    [[nodiscard]] const std::string& result() const noexcept { return result_; }

    TextBox txtPath{*this, "txtPath"};
    Label lblDrive{*this, "lblDrive", "&Drive:"};
    DriveList drvPath;
    Label lblPath{*this, "lblPath", "&Folder:"};
    FolderList DirPath;
    Button cmdNew{*this, "cmdNew", "&New Folder..."};
    Button cmdOK{*this, "cmdOK", "&OK", Button::Role::Default};
    Button cmdCancel{*this, "cmdCancel", "&Cancel", Button::Role::Cancel};

  private:
    void Form_Load();
    void drvPath_Change();
    void DirPath_Change();
    void txtPath_Change() { bPathChanged_ = true; }
    void txtPath_LostFocus();
    void cmdNew_Click();
    void cmdOK_Click();
    void cmdCancel_Click() { unload(); }

    void connectEvents();
    void showFolder(std::string_view folder);
    [[nodiscard]] std::string inFull(std::string_view path) const;
    [[nodiscard]] bool acceptPath();
    void createIfPossible(std::string_view folder);

    Files& files_;
    Desktop& desktop_;
    AskForText askForText_;
    std::string startFolder_;
    std::string result_;
    bool bPathChanged_ = false;
};

// The folder that the user chose in a frmOpenFolder; empty when there is none. An empty title is
// the form's own. `startFolder` may be empty or no folder at all.
[[nodiscard]] std::string pickFolder(FormPresenter& presenter, Files& files, Desktop& desktop,
                                     std::string_view title, std::string_view startFolder);

} // namespace tarnwick
