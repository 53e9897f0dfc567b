#include "ui/dialogs/frm_input_box.hpp"

namespace tarnwick {
namespace {

// As a caption that shows the text as it is.
std::string asCaption(std::string_view text) {
    std::string caption;
    for (const char character : text) {
        caption.append(character == '&' ? 2 : 1, character);
    }
    return caption;
}

} // namespace

frmInputBox::frmInputBox(std::string_view prompt, std::string_view title)
    : Form("frmInputBox", title), lblPrompt(*this, "lblPrompt", asCaption(prompt)) {
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
