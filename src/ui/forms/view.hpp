#pragma once

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

} // namespace tarnwick
