#pragma once

#include "ui/forms/form.hpp"
#include "ui/win32/control_window.hpp"

#include <windows.h>

#include <exception>
#include <memory>
#include <string_view>
#include <vector>

namespace tarnwick {

// Shows a form as a modal dialog. The dialog resource bears the form's name, and the text of each
// control in it is the name of the control that it shows; captions come from the form. Order of
// tabs, access keys, default button and Escape are the system's.
class DialogView final : public View {
  public:
    // `form` must outlive the view.
    explicit DialogView(Form& form) : form_(form) {}

    // See FormPresenter::showModal.
    void runModal();

    void changed(Property property) override;

  private:
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept;
    [[nodiscard]] bool handle(UINT message, WPARAM wParam, LPARAM lParam);
    void fail(std::exception_ptr error) noexcept;

    void open();
    void bindControls();
    void command(WORD id, WORD code, HWND window);
    void lookWhereTheFocusIs();
    void resized(WPARAM kind);
    void place();
    void resolutionChanged();
    void close() noexcept;

    [[nodiscard]] ControlWindow* find(HWND window) const noexcept;
    [[nodiscard]] int dpi() const noexcept;
    [[nodiscard]] Size contentAndFrame() const noexcept;
    [[nodiscard]] RECT screenArea() const noexcept;

    Form& form_;
    HWND dialog_ = nullptr;
    std::vector<std::unique_ptr<ControlWindow>> windows_;
    std::exception_ptr error_;
    bool focusMoved_ = false; // and the message that says so is under way
};

} // namespace tarnwick
