#pragma once

#include "ui/forms/button.hpp"
#include "ui/forms/control.hpp"
#include "ui/forms/measures.hpp"
#include "ui/forms/menu_item.hpp"
#include "ui/forms/view.hpp"

#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

enum class WindowState { Normal, Minimized, Maximized };

enum class MousePointer {
    Default,
    Busy,          // the program works, and the user may go on
    ArrowQuestion, // over a link
};

// A window as data: its caption, its controls, and which of them has the focus. A form of the
// program derives from it and has its controls as members.
//
// The rules of the focus, in one place for all forms:
//  - GotFocus and LostFocus fire when the user moves the focus. Code that moves it fires
//    neither, so that a handler which sends the focus back never starts another handler.
//  - A control has lost the focus only when another control of the same form has it: not when
//    another window or program takes the keyboard, nor when the form closes.
//  - A control that is left for a Cancel button, or for one of its helpers (see
//    Control::putOffCheckFor), gets no LostFocus at first: a user who cancels, or is about to
//    correct a field, need not read what is wrong with it. It gets its LostFocus when the focus
//    moves on from there to another control, unless it was switched off in the meantime.
//  - While a handler of LostFocus or GotFocus runs, no other one is started.
class Form : public Viewed {
  public:
    Form(std::string_view name, std::string_view caption) : name_(name), caption_(caption) {}
    virtual ~Form() = default;

    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    void setCaption(std::string_view caption) { set(caption_, caption, Property::Caption); }

    // In the order of the focus. They are members of the form.
    [[nodiscard]] const std::vector<Control*>& controls() const noexcept { return controls_; }
    // The control of that name; null when there is none.
    [[nodiscard]] Control* find(std::string_view name) const noexcept;
    // Null before the form is shown, after it is gone, and when no control can have the focus.
    [[nodiscard]] Control* focused() const noexcept { return focused_; }

    // The window on the screen: its size counts the frame (see windowFrame).
    [[nodiscard]] const Bounds& window() const noexcept { return window_; }
    void moveTo(int left, int top);
    // Fires no Resize: the code that asks for a size knows it.
    void resizeTo(Size window);
    void centreOnScreen();
    // The part of the window that the controls lie in.
    [[nodiscard]] Size content() const noexcept {
        return {.width = window_.width - frame_.width, .height = window_.height - frame_.height};
    }
    [[nodiscard]] WindowState windowState() const noexcept { return windowState_; }
    // The screen that the window is on. Its upper left corner is the origin of window().
    [[nodiscard]] const Size& screen() const noexcept { return screen_; }

    [[nodiscard]] MousePointer mousePointer() const noexcept { return mousePointer_; }
    void setMousePointer(MousePointer to) { set(mousePointer_, to, Property::Pointer); }

    // The entries of the menu bar, from left to right; members of the form.
    [[nodiscard]] const std::vector<MenuItem*>& menu() const noexcept { return menu_; }

    [[nodiscard]] bool loaded() const noexcept { return loaded_; }
    [[nodiscard]] bool visible() const noexcept { return visible_; }
    // Takes the window off the screen and keeps its contents.
    void hide();
    // Ends it: fires Unload when it was loaded, and hides it.
    void unload();
    // Ends it as unload does, but fires nothing: nothing is asked and nothing is kept.
    void abandon();

    std::function<void()> Load;   // before it is shown for the first time
    std::function<void()> Resize; // after it was shown, and whenever its size has changed
    std::function<void()> Unload;
    std::function<void()> SessionIsEnding; // and the form may soon be closed with it
    std::function<void()> SessionGoesOn;   // after all
    // Showing the form has failed; it is unloaded next. Without a handler the error goes to whoever
    // had it shown.
    std::function<void(const std::exception_ptr& error)> ViewFailed;
    std::function<void(int keyCode)> FunctionKey; // wherever the focus is
    std::function<void()> MouseMove; // over no control, or over one that has no handler for it

    // For presenters: the window's and the screen's size, before show().
    void measured(Size window, Size screen) noexcept;
    // For presenters: by how much the window is larger than its content, if not by windowFrame.
    void measuredFrame(Size frame) noexcept { frame_ = frame; }
    // For presenters: loads the form where it is not loaded yet and makes it visible, with the
    // focus on the first control that can have it, unless Load has chosen one. When Load unloads
    // the form, it stays hidden.
    void show();

    // What the user did. A form that is not visible takes no notice.
    void userMovedFocus(Control& to);
    // The user moved the focus to `control` and clicked it. A field that was left and sends the
    // focus back swallows the click: the user must see to that field first.
    void userClicked(Clickable& control);
    // The control with the focus is asked first whether it wants the key.
    void userPressedEnter();
    void userPressedEscape();
    // Besides, the control with the focus may have a use for it.
    void userPressedFunctionKey(int keyCode);
    // The window's close button, or what stands for it.
    void userClosed();
    // The user's session on the machine is about to end: now is the time to ask something. Whether
    // it has ended, or goes on because another program would not have it, is told afterwards.
    void sessionIsEnding();
    void sessionEnded(bool ended);
    void userResized(Size window, WindowState state);
    // For presenters: the view has raised that error. Unloads the form; true when the form has
    // dealt with the error.
    [[nodiscard]] bool viewFailed(const std::exception_ptr& error);
    // Where the window is now; fires nothing.
    void userMoved(int left, int top) noexcept;
    void userMovedMouse();

  private:
    friend class Control;
    friend class MenuItem;
    void add(Control& control) { controls_.push_back(&control); }
    void add(MenuItem& item) { menu_.push_back(&item); }
    [[nodiscard]] bool setFocus(Control& control) noexcept; // whether it can have it
    void keepFocusUsable();

    void leaveFor(Control& to);
    [[nodiscard]] Control* firstFocusable() const noexcept;
    [[nodiscard]] bool focusedTakes(int keyCode);
    void click(bool (*wanted)(const Button&));

    std::string name_;
    std::string caption_;
    std::vector<Control*> controls_;
    std::vector<MenuItem*> menu_;
    Control* focused_ = nullptr;
    Control* owed_ = nullptr; // left, and its LostFocus is still to come
    bool movingFocus_ = false;
    bool loaded_ = false;
    bool visible_ = false;
    Bounds window_;
    Size frame_ = windowFrame;
    Size screen_;
    MousePointer mousePointer_ = MousePointer::Default;
    WindowState windowState_ = WindowState::Normal;
};

} // namespace tarnwick
