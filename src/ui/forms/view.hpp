#pragma once

#include <utility>

namespace tarnwick {

// What can change about a control or a form.
enum class Property {
    Enabled,
    Visible,
    Bounds,
    Caption,
    Value,
    Text,
    Selection,
    ReadOnly,
    Font,
    Focus, // the control has been given the focus by code
    AccessibleName,
    Hint,
    Items,
    HorizontalExtent,
    Cells, // their contents, number or measures
    Panels,
    Size,    // of the form's window
    Pointer, // of the mouse, over the form
};

// Shows one control or form on a screen. It is told what changed and reads the new state from what
// it shows; it holds no rule of its own.
class View {
  public:
    virtual ~View() = default;

    // Called after the change, by whatever code made it. What it raises reaches that code.
    virtual void changed(Property property) = 0;
};

// What a view can show: a control or a form.
class Viewed {
  public:
    Viewed(const Viewed&) = delete;
    Viewed& operator=(const Viewed&) = delete;

    // The view must outlive its attachment. There is one at a time.
    void attach(View& view) noexcept { view_ = &view; }
    void detach() noexcept { view_ = nullptr; }

  protected:
    Viewed() = default;
    ~Viewed() = default;

    void tellView(Property property) {
        if (view_ != nullptr) {
            view_->changed(property);
        }
    }
    // Sets `member` and tells the view when that is a change.
    template <typename Value, typename Wanted>
    void set(Value& member, Wanted&& value, Property property) {
        if (member != value) {
            member = std::forward<Wanted>(value);
            tellView(property);
        }
    }

  private:
    View* view_ = nullptr;
};

} // namespace tarnwick
