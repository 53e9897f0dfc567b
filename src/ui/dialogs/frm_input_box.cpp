#include "ui/dialogs/frm_input_box.hpp"

#include "common/text.hpp"

namespace tarnwick {

frmInputBox::frmInputBox(std::string_view prompt, std::string_view title)
    : Form("frmInputBox", title), lblPrompt(*this, "lblPrompt", withDoubled(prompt, '&')) {
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { unload(); };
}

void frmInputBox::cmdOK_Click() {
    result_ = txtLine.text();
    unload();
}

AskForText askingIn(FormPresenter& presenter) {
    return [&presenter](std::string_view prompt, std::string_view title) {
        frmInputBox box(prompt, title);
        presenter.showModal(box);
        return box.result();
    };
}

} // namespace tarnwick
