#include "ui/win32/win32_form_presenter.hpp"

#include "ui/win32/dialog_view.hpp"

namespace tarnwick {

void Win32FormPresenter::showModal(Form& form) {
    DialogView(form).runModal();
}

} // namespace tarnwick
