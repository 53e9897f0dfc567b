#pragma once

#include "ui/win32/captioned_window.hpp"
#include "ui/win32/gdi_handle.hpp"

#include <windows.h>

namespace tarnwick {

// A static text. Only one with the style SS_NOTIFY tells of the mouse over it.
class LabelWindow final : public CaptionedWindow {
  public:
    LabelWindow(Label& label, HWND window) : CaptionedWindow(label, window), label_(label) {}

    void changed(Property property) override;
    void resolutionChanged() override;

  private:
    void showFont();

    Label& label_;
    GdiHandle<HFONT> font_;
};

} // namespace tarnwick
