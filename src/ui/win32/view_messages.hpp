#pragma once

#include <windows.h>

namespace tarnwick {

// What the view says to itself, through the dialog's window procedure.
enum ViewMessage : UINT {
    // A control has gained or lost the keyboard: look where it is now that all has settled.
    focusMoved = WM_APP + 1,
    // Alt and a character (wParam) were pressed; answered in DWLP_MSGRESULT whether that is all.
    accessKey,
    // A function key (wParam) went down somewhere in the window.
    functionKey,
    // The window is on a screen of another resolution now, and the system has laid it out.
    resolutionChanged,
};

// The pointer or handle that the system passes around as a number.
template <typename Pointer>
[[nodiscard]] Pointer pointerIn(LONG_PTR number) noexcept {
    return reinterpret_cast<Pointer>(number); // NOLINT(performance-no-int-to-ptr)
}

} // namespace tarnwick
