#pragma once

#include "ui/forms/measures.hpp"
#include "ui/forms/view.hpp"

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

class Form;

// One control of a form, as data. Properties that code sets are passed on to the view, if one is
// attached, and fire no event. Events fire in the user..., userMoved... and userClicked...
// functions, which say what the user did: the view calls them, and so does a test. A control that
// is disabled or not visible takes no notice of them.
class Control : public Viewed {
  public:
    // A member of `form`, which knows its controls in the order in which they are made: the order
    // of the focus. `name` is unique within the form.
    Control(Form& form, std::string_view name);
    virtual ~Control() = default;

    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    [[nodiscard]] Form& form() const noexcept { return form_; }

    [[nodiscard]] bool enabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled) { setUsable(enabled_, enabled, Property::Enabled); }
    [[nodiscard]] bool visible() const noexcept { return visible_; }
    void setVisible(bool visible) { setUsable(visible_, visible, Property::Visible); }
    // Within the form's content.
    [[nodiscard]] const Bounds& bounds() const noexcept { return bounds_; }
    void setBounds(const Bounds& bounds) { set(bounds_, bounds, Property::Bounds); }

    // Whether this kind of control can have the focus at all.
    [[nodiscard]] virtual bool isFocusable() const noexcept { return true; }
    // Whether the user may go from a field to this control without the field being checked first:
    // its LostFocus, in which it would be, fires later or never (see Form).
    [[nodiscard]] virtual bool isCancel() const noexcept { return false; }
    // The user may go from this field to one of these without the field being checked first: by
    // them it is corrected or switched off. They must outlive it.
    void putOffCheckFor(std::initializer_list<const Control*> helpers) { helpers_ = helpers; }
    [[nodiscard]] bool putsOffCheckFor(const Control& to) const noexcept;
    // Whether the user can act on it now.
    [[nodiscard]] bool isUsable() const noexcept { return enabled_ && visible_; }

    // What a screen reader calls it where no label stands before it; empty: its label or caption.
    [[nodiscard]] const std::string& accessibleName() const noexcept { return accessibleName_; }
    void setAccessibleName(std::string_view name) {
        set(accessibleName_, name, Property::AccessibleName);
    }

    // Enter or Escape (a code of keys.hpp), before the form looks for a button that answers it:
    // whether the control has a use for it now.
    [[nodiscard]] virtual bool wantsKey(int /*keyCode*/) const { return false; }
    virtual void userPressedKey(int /*keyCode*/) {}

    // When this control is switched off or hidden while it has the focus, `successor` gets the
    // focus if it can have it, else the form's first control. It must outlive this control.
    void passFocusTo(Control& successor) noexcept { successor_ = &successor; }
    [[nodiscard]] Control* successor() const noexcept { return successor_; }

    // Gives it the focus; fires no event. Nothing happens when it is disabled, not visible or of
    // a kind that has no focus.
    void setFocus();

    // The mouse was moved over it. A control without a handler of its own leaves that to the form.
    void userMovedMouse();

    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
    std::function<void()> MouseMove;

  protected:
    // The user acts on it, which brings the focus along. False when it did not come: the control
    // that was left has kept it, and what the user did is lost.
    [[nodiscard]] bool userBroughtFocus();

  private:
    void setUsable(bool& member, bool value, Property property);

    Form& form_;
    std::string name_;
    std::string accessibleName_;
    std::vector<const Control*> helpers_;
    Control* successor_ = nullptr;
    Bounds bounds_;
    bool enabled_ = true;
    bool visible_ = true;
};

// Runs the handler of an event; most events have none.
template <typename Handler, typename... Arguments>
void fire(const Handler& handler, Arguments&&... arguments) {
    if (handler) {
        handler(static_cast<Arguments&&>(arguments)...);
    }
}

} // namespace tarnwick
