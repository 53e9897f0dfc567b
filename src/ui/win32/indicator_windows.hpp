#pragma once

#include "ui/forms/indicators.hpp"
#include "ui/forms/status_bar.hpp"
#include "ui/win32/control_window.hpp"

#include <windows.h>

#include <commctrl.h>

namespace tarnwick {

// A status bar of the common controls, at the lower edge of the window.
class StatusBarWindow final : public ControlWindow {
  public:
    StatusBarWindow(StatusBar& statusBar, HWND window);

    void changed(Property property) override;
    void resolutionChanged() override;
    void formResized() override;

  private:
    void showPanels();
    void showTexts();

    StatusBar& statusBar_;
};

// A progress bar of the common controls.
class ProgressBarWindow final : public ControlWindow {
  public:
    ProgressBarWindow(ProgressBar& progressBar, HWND window)
        : ControlWindow(progressBar, window), progressBar_(progressBar) {
        SendMessageW(window, PBM_SETRANGE32, 0, ProgressBar::full);
    }

    void changed(Property property) override;

  private:
    void showValue() const;
    void repaintBehind() const;

    ProgressBar& progressBar_;
};

} // namespace tarnwick
