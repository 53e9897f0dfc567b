#include "ui/win32/indicator_windows.hpp"

#include "platform/win32/system_text.hpp"
#include "ui/forms/measures.hpp"

#include <vector>

namespace tarnwick {

StatusBarWindow::StatusBarWindow(StatusBar& statusBar, HWND window)
    : ControlWindow(statusBar, window), statusBar_(statusBar) {
    // What lies over it is not painted over.
    SetWindowLongPtrW(window, GWL_STYLE, GetWindowLongPtrW(window, GWL_STYLE) | WS_CLIPSIBLINGS);
}

void StatusBarWindow::changed(Property property) {
    if (property == Property::Panels) {
        showPanels();
    } else if (property == Property::Text) {
        showTexts();
    } else {
        ControlWindow::changed(property);
    }
}

// It finds its place itself.
void StatusBarWindow::formResized() {
    SendMessageW(window(), WM_SIZE, 0, 0);
    measure();
}

void StatusBarWindow::resolutionChanged() {
    formResized();
    showPanels();
}

void StatusBarWindow::showPanels() {
    std::vector<int> rightEdges;
    for (int panel = 1; panel <= statusBar_.panels(); ++panel) {
        rightEdges.push_back(
            toPixels(statusBar_.panelLeft(panel) + statusBar_.panelWidth(panel), dpi()));
    }
    SendMessageW(window(), SB_SETPARTS, rightEdges.size(),
                 reinterpret_cast<LPARAM>(rightEdges.data()));
}

void StatusBarWindow::showTexts() {
    for (int panel = 1; panel <= statusBar_.panels(); ++panel) {
        SendMessageW(window(), SB_SETTEXTW, static_cast<WPARAM>(panel - 1),
                     reinterpret_cast<LPARAM>(toWide(statusBar_.panelText(panel)).c_str()));
    }
}

void ProgressBarWindow::changed(Property property) {
    if (property == Property::Value) {
        showValue();
        return;
    }
    ControlWindow::changed(property);
    if (property == Property::Visible && !progressBar_.visible()) {
        repaintBehind();
    }
}

// A themed bar walks to a higher value, and would be hidden half way; to a lower one it goes at
// once. So it is set one too far and back.
void ProgressBarWindow::showValue() const {
    const auto value = static_cast<WPARAM>(progressBar_.value());
    SendMessageW(window(), PBM_SETRANGE32, 0, ProgressBar::full + 1);
    SendMessageW(window(), PBM_SETPOS, value + 1, 0);
    SendMessageW(window(), PBM_SETPOS, value, 0);
    SendMessageW(window(), PBM_SETRANGE32, 0, ProgressBar::full);
}

// The panel that it stood in draws its edges beside it as well, and is not asked to do so by
// itself.
void ProgressBarWindow::repaintBehind() const {
    HWND behind = GetParent(window());
    RECT area{};
    GetWindowRect(window(), &area);
    MapWindowPoints(HWND_DESKTOP, behind, reinterpret_cast<POINT*>(&area), 2);
    constexpr int edge = 2;
    InflateRect(&area, edge, edge);
    RedrawWindow(behind, &area, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

} // namespace tarnwick
