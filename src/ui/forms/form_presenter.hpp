#pragma once

#include "ui/forms/form.hpp"

namespace tarnwick {

// Puts forms on a screen.
class FormPresenter {
  public:
    virtual ~FormPresenter() = default;

    // Shows the form, modal to the window that asks, and returns when it is hidden or unloaded. An
    // error that no handler of the form has trapped ends the form and is raised here.
    virtual void showModal(Form& form) = 0;
};

} // namespace tarnwick
