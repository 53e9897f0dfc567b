#pragma once

#include <windows.h>

#include <string>

namespace tarnwick {

// Tells the user that what was typed or chosen is not taken, because a character of it has no place
// in the system's code page. The message shows which (see shownText). `owner` may be null.
void tellUnusable(HWND owner, const std::wstring& text);

} // namespace tarnwick
