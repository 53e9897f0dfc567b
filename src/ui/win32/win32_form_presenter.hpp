#pragma once

#include "ui/forms/form_presenter.hpp"

namespace tarnwick {

// Shows forms as dialogs, made from this program's own resources.
class Win32FormPresenter final : public FormPresenter {
  public:
    // The owner is the window that asks, if there is one.
    // Raises 51 where the dialog resource is missing or does not fit the form.
    void showModal(Form& form) override;
};

} // namespace tarnwick
