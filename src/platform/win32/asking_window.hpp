#pragma once

#include <windows.h>

namespace tarnwick {

// The window of this thread that asks the user something when a dialog is shown now: the frontmost
// one that can be used, for every other is disabled while it waits for a dialog. It need not be the
// active window: another program may be in front. Null before there is one.
[[nodiscard]] HWND askingWindow() noexcept;

} // namespace tarnwick
