#pragma once

#include <windows.h>

namespace tarnwick {

// What the view says to itself, through the dialog's window procedure.
enum ViewMessage : UINT {
    // A control has gained or lost the keyboard: look where it is now that all has settled.
    focusMoved = WM_APP + 1,
    // A key went down or up (wParam) in a control (lParam is its window).
    keyPressed,
    keyReleased,
    // The window is on a screen of another resolution now, and the system has laid it out.
    resolutionChanged,
};

} // namespace tarnwick
