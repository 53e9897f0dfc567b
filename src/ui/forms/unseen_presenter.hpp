#pragma once

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "platform/desktop.hpp"
#include "ui/forms/form_presenter.hpp"

namespace tarnwick {

// Where nobody can see a window: every form counts as cancelled before it is loaded, and the
// desktop's log says so (see common/unseen_desktop.hpp). Refers to the desktop, which must outlive
// it.
class UnseenPresenter final : public FormPresenter {
  public:
    explicit UnseenPresenter(Desktop& desktop) noexcept : desktop_(desktop) {}

    void showModal(Form& form) override {
        showWarning(desktop_, "The window " + tarnwick::quoted(form.caption()) +
                                  " counts as cancelled: nobody can see it.");
    }

  private:
    Desktop& desktop_;
};

} // namespace tarnwick
