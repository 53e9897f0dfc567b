#include "ui/dialogs/pick_folder.hpp"

#include "ui/dialogs/frm_open_folder.hpp"

namespace tarnwick {

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
