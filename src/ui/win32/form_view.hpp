#pragma once

#include "ui/forms/form.hpp"
#include "ui/win32/com_pointer.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/menu_bar.hpp"
#include "ui/win32/monitor.hpp"
#include "ui/win32/program_icon.hpp"

#include <windows.h>

#include <exception>
#include <memory>
#include <optional>
#include <vector>

namespace tarnwick {

// Shows a form in a window made from a dialog resource. The resource bears the form's name, and the
// text of each control in it is the name of the control that it shows; captions come from the form.
// Every control has a number of its own.
// Order of tabs, default button and Escape are the system's; so are the access keys, but for those
// of a main window (see access_keys.hpp). A control that lies over
// another one comes before it in the resource.
class FormView : public View {
  public:
    void changed(Property property) override;

    // Runs `body`, which answers something that the user did in the dialog. What it raises must not
    // pass through the system's code: it ends the dialog, and is raised again behind it.
    template <typename Body>
    static void guarded(HWND dialog, Body&& body) noexcept {
        try {
            static_cast<Body&&>(body)();
        } catch (...) {
            if (FormView* const view = of(dialog); view != nullptr) {
                view->fail(std::current_exception());
            }
        }
    }

  protected:
    // `form` must outlive the view.
    explicit FormView(Form& form);

    // For the functions of the system that make a dialog; their parameter is the FormView.
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept;

    // The window is there, without its contents.
    virtual void made() = 0;
    // Takes the window off the screen, now or soon.
    virtual void close() noexcept = 0;
    // As the form counts it.
    [[nodiscard]] virtual Size windowSize() const noexcept = 0;
    // At least so large that the window is of this size.
    virtual void applySize() noexcept {}
    // In pixels, how large it is on a monitor of another resolution; nothing where the system may
    // scale it as it finds right.
    [[nodiscard]] virtual std::optional<SIZE> sizeAt(int /*dpi*/) const noexcept {
        return std::nullopt;
    }

    // Binds window and form, and tells the form its measures.
    void bind();
    // Puts the keyboard where the form has the focus.
    void showFocus() noexcept;
    // Ends the binding; raises what was raised, unless the form has dealt with it.
    void release();
    // Whether something was raised, which has ended it.
    [[nodiscard]] bool failed() const noexcept { return failed_; }

    [[nodiscard]] Form& form() const noexcept { return form_; }
    [[nodiscard]] HWND dialog() const noexcept { return dialog_; }
    [[nodiscard]] int dpi() const noexcept { return static_cast<int>(GetDpiForWindow(dialog_)); }

  private:
    // Null for a window that shows no form.
    [[nodiscard]] static FormView* of(HWND dialog) noexcept;
    [[nodiscard]] bool handle(UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] bool handleLook(UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] bool handleOwn(UINT message, WPARAM wParam);
    void fail(std::exception_ptr error) noexcept;

    void bindControls();
    void command(WORD id, WORD code, HWND window);
    [[nodiscard]] bool pressedAccessKey(char key) const noexcept;
    [[nodiscard]] HWND windowOf(const Control* control) const noexcept;
    void lookWhereTheFocusIs();
    void resized(WPARAM kind);
    void moved();
    void measureFrame();
    void place();
    void resolutionChanged();
    void mouseOver(HWND window, WORD hit);
    [[nodiscard]] bool showPointer(WORD hit) const noexcept;
    void answer(LRESULT result) const noexcept;

    [[nodiscard]] ControlWindow* find(HWND window) const noexcept;
    [[nodiscard]] Screen formsScreen() const noexcept;

    ComUser components_; // kept for all: to start them for each control takes time
    Form& form_;
    HWND dialog_ = nullptr;
    MenuBar menuBar_;
    WindowIcons icons_;
    std::vector<std::unique_ptr<ControlWindow>> windows_;
    std::exception_ptr error_;
    bool failed_ = false;
    bool focusMoved_ = false; // and the message that says so is under way
};

} // namespace tarnwick
