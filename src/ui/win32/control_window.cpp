#include "ui/win32/control_window.hpp"

#include "ui/forms/measures.hpp"
#include "ui/win32/accessible_name.hpp"

namespace tarnwick {

ControlWindow::ControlWindow(Control& control, HWND window) : control_(control), window_(window) {
    measure();
    control_.attach(*this);
}

ControlWindow::~ControlWindow() {
    control_.detach();
}

void ControlWindow::measure() {
    RECT area{};
    GetWindowRect(window_, &area);
    MapWindowPoints(HWND_DESKTOP, GetParent(window_), reinterpret_cast<POINT*>(&area), 2);
    const int resolution = dpi();
    control_.setBounds({.left = toTwips(area.left, resolution),
                        .top = toTwips(area.top, resolution),
                        .width = toTwips(area.right - area.left, resolution),
                        .height = toTwips(area.bottom - area.top, resolution)});
}

void ControlWindow::place() {
    const Bounds& bounds = control_.bounds();
    const int resolution = dpi();
    SetWindowPos(window_, nullptr, toPixels(bounds.left, resolution),
                 toPixels(bounds.top, resolution), toPixels(bounds.width, resolution),
                 toPixels(bounds.height, resolution),
                 SWP_NOCOPYBITS | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlWindow::changed(Property property) {
    switch (property) {
    case Property::Enabled:
        EnableWindow(window_, control_.enabled() ? TRUE : FALSE);
        break;
    case Property::Visible:
        ShowWindow(window_, control_.visible() ? SW_SHOWNA : SW_HIDE);
        break;
    case Property::Bounds:
        placedByCode_ = true;
        place();
        break;
    case Property::Focus:
        // Not SetFocus: the dialog must know, for the default button's sake.
        SendMessageW(GetParent(window_), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window_), TRUE);
        break;
    case Property::AccessibleName:
        if (!control_.accessibleName().empty()) {
            setAccessibleName(window_, control_.accessibleName());
        }
        break;
    default:
        break;
    }
}

void ControlWindow::showAll() {
    fitResolution();
    for (const Property property :
         {Property::Caption, Property::Value, Property::ReadOnly, Property::Hint, Property::Items,
          Property::HorizontalExtent, Property::Cells, Property::Panels, Property::Text,
          Property::Selection, Property::AccessibleName, Property::Enabled, Property::Visible}) {
        changed(property);
    }
}

void ControlWindow::resolutionChanged() {
    if (placedByCode_) {
        place();
    }
    fitResolution();
}

} // namespace tarnwick
