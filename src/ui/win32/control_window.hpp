#pragma once

#include "ui/forms/control.hpp"
#include "ui/forms/view.hpp"

#include <windows.h>

#include <memory>

namespace tarnwick {

// Shows one control in a window that a dialog resource made. Neither is owned; both must outlive
// it. Class by class it says how a property looks in a window and what a notification means.
class ControlWindow : public View {
  public:
    // The control takes its first bounds from the window.
    ControlWindow(Control& control, HWND window);
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    ~ControlWindow() override;

    [[nodiscard]] HWND window() const noexcept { return window_; }
    [[nodiscard]] Control& control() const noexcept { return control_; }

    void changed(Property property) override;
    // Brings the window to what the control says, in everything.
    void showAll();
    // The screen's resolution is another one now.
    virtual void resolutionChanged();
    // The form's window has another size now.
    virtual void formResized() {}

    // The window sent the dialog this notification.
    virtual void notified(WORD /*code*/) {}
    // The key went down or up in the window, for one with a KeyListener.
    virtual void keyPressed(int keyCode) { control_.userPressedKey(keyCode); }
    virtual void keyReleased(int /*keyCode*/) {}
    // A window whose owner draws it asks for an item.
    virtual void drawItem(const DRAWITEMSTRUCT& /*item*/) {}
    // Whether the notification says that the window has gained or lost the keyboard.
    [[nodiscard]] virtual bool isFocusNotice(WORD /*code*/) const noexcept { return false; }

  protected:
    [[nodiscard]] int dpi() const noexcept { return static_cast<int>(GetDpiForWindow(window_)); }
    // Brings what the window has of its own (fonts, pictures, measures) to the screen's resolution:
    // before it is shown first, and whenever that is another one.
    virtual void fitResolution() {}

    // The control takes its bounds from the window.
    void measure();

  private:
    void place();

    Control& control_;
    HWND window_;
    bool placedByCode_ = false; // else the dialog resource and the system place it
};

// The window of the control's kind. Raises 51 for a kind that no window is made for.
[[nodiscard]] std::unique_ptr<ControlWindow> makeControlWindow(Control& control, HWND window);

} // namespace tarnwick
