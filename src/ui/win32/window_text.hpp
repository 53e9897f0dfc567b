#pragma once

#include "platform/win32/system_text.hpp"

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>

namespace tarnwick {

// What stands in the window; nothing where a character has no place in the system's code page.
[[nodiscard]] inline std::optional<std::string> windowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return toSystemText(text);
}

inline void setWindowText(HWND window, std::string_view text) {
    SetWindowTextW(window, toWide(text).c_str());
}

} // namespace tarnwick
