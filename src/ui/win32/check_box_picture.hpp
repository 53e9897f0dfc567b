#pragma once

#include <windows.h>

namespace tarnwick {

// Draws the system's own check box, in its natural size, into the middle of `area` of `window`.
void drawCheckBox(HWND window, HDC context, const RECT& area, bool ticked, bool enabled);

} // namespace tarnwick
