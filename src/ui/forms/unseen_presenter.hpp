#pragma once

#include "platform/desktop.hpp"
#include "ui/forms/form_presenter.hpp"

namespace tarnwick {

// Where nobody can see a window: every form counts as cancelled before it is loaded, and the
// desktop's log says so (see common/unseen_desktop.hpp). Refers to the desktop, which must outlive
// it.
class UnseenPresenter final : public FormPresenter {
  public:
    explicit UnseenPresenter(Desktop& desktop) noexcept : desktop_(desktop) {}

    void showModal(Form& form) override;

  private:
    Desktop& desktop_;
};

} // namespace tarnwick
