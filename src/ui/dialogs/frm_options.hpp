#pragma once

#include "definition/batch_definition.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "ui/forms/button.hpp"
#include "ui/forms/check_box.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/text_box.hpp"

#include <string_view>

namespace tarnwick {

// The settings without a place in the main window: where the tools are, command-line logging, and
// the conversion of hyperlinks. OK applies all of them to `definition`, or none where one is
// refused; anything else leaves it as it was. Refers to its arguments, which must outlive it.
class frmOptions final : public Form {
  public:
    frmOptions(BatchDefinition& definition, const Files& files, Desktop& desktop);

    Frame fraFile{*this, "fraFile", "File locations"};
    Label lblMPEXE{*this, "lblMPEXE", "&MP executable:"};
    TextBox txtMPEXE{*this, "txtMPEXE"};
    Button cmdMPEXE{*this, "cmdMPEXE", "Browse..."};
    Label lblCNS{*this, "lblCNS", "&CNS executable:"};
    TextBox txtCNS{*this, "txtCNS"};
    Button cmdCNS{*this, "cmdCNS", "Browse..."};
    CheckBox chkCmdLogging{*this, "chkCmdLogging", "&Command line filename:"};
    TextBox txtCmdFile{*this, "txtCmdFile"};
    Button cmdCmdFile{*this, "cmdCmdFile", "Browse..."};
    Frame fraHyperlinks{*this, "fraHyperlinks", "Hyperlinks"};
    CheckBox chkRelative{*this, "chkRelative", "Convert HTTP hyperlinks to relative paths"};
    Button cmdOK{*this, "cmdOK", "OK", Button::Role::Default};
    Button cmdCancel{*this, "cmdCancel", "Cancel", Button::Role::Cancel};

  private:
    void Form_Load();
    void cmdMPEXE_Click();
    void cmdCNS_Click();
    void cmdCmdFile_Click();
    void chkCmdLogging_Click() { enableLogging(chkCmdLogging.ticked()); }
    void txtMPEXE_Change() { bMPEXEChanged_ = true; }
    void txtCNS_Change() { bCNSChanged_ = true; }
    void txtCmdFile_Change() { bCmdFileChanged_ = true; }
    void txtMPEXE_LostFocus();
    void txtCNS_LostFocus();
    void txtCmdFile_LostFocus();
    void cmdOK_Click();
    void cmdCancel_Click() { unload(); }

    void connectEvents();
    void enableLogging(bool enabled);
    void browse(TextBox& field, FileDialog dialog);
    void checkTool(TextBox& field, int process, std::string_view tool);
    [[nodiscard]] static bool mayBeNowhere(const TextBox& field, int process);
    void takeBareNameFromAppFolder(TextBox& field);
    [[nodiscard]] bool acceptTool(TextBox& field, int process, std::string_view tool);
    [[nodiscard]] bool acceptLogging();

    BatchDefinition& definition_;
    const Files& files_;
    Desktop& desktop_;
    bool bMPEXEChanged_ = false;
    bool bCNSChanged_ = false;
    bool bCmdFileChanged_ = false;
};

} // namespace tarnwick
