#pragma once

#include <windows.h>

#include <string>

namespace tarnwick {

// A dialog with a prompt, a field for one line, OK and Cancel, modal to `owner` (which may be
// null). The line typed; empty when cancelled.
[[nodiscard]] std::string runInputBox(HWND owner, const std::string& prompt,
                                      const std::string& title);

// The identifier of the field, for whoever drives the dialog.
inline constexpr int inputBoxField = 100;

} // namespace tarnwick
