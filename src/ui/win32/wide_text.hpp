#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace tarnwick {

// For the few services of the system that have no 8-bit form.
[[nodiscard]] inline std::wstring wide(const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    std::wstring result(text.size(), L'\0'); // never more characters than bytes
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, result.data(), bytes);
    result.resize(static_cast<std::size_t>(length));
    return result;
}

} // namespace tarnwick
