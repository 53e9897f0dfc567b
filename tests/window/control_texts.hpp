#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace tarnwick::probe {

// Looks at one control of another program. Texts are UTF-8; an end of a line in them is " / ".

[[nodiscard]] std::string utf8(const std::wstring& text);
[[nodiscard]] std::wstring utf16(const std::string& text);

[[nodiscard]] std::string textOf(HWND window);
// text, check, button, frame, label, list, combo, grid, status, progress or the window's class.
[[nodiscard]] std::string kindOf(HWND window);

// The names that the controls of that window have in the dialog resource it was made from; none
// where it was made from no resource of ours.
[[nodiscard]] std::map<HWND, std::string> namesOfControls(HWND window);

} // namespace tarnwick::probe
