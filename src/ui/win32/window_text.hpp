#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace tarnwick {

[[nodiscard]] inline std::string windowText(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)), '\0');
    const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

} // namespace tarnwick
