#pragma once

#include "ui/win32/form_view.hpp"

namespace tarnwick {

// Shows a form as a modal dialog.
class DialogView final : public FormView {
  public:
    explicit DialogView(Form& form) : FormView(form) {}

    // See FormPresenter::showModal.
    void runModal();

  private:
    void made() override;
    void close() noexcept override;
    [[nodiscard]] Size windowSize() const noexcept override;
};

} // namespace tarnwick
