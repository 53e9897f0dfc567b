#include "ui/forms/unseen_presenter.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"

namespace tarnwick {

void UnseenPresenter::showModal(Form& form) {
    showWarning(desktop_, "The window " + quoted(form.caption()) +
                              " counts as cancelled: nobody can see it.");
}

} // namespace tarnwick
