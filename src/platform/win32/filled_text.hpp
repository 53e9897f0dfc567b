#pragma once

#include <windows.h>

#include <string>

namespace tarnwick {

// Calls a function of the system that fills a buffer, and tells how long a buffer it needs when
// that one is too short.
template <typename Fill>
[[nodiscard]] std::wstring filledBy(Fill&& fill) {
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = fill(text.data(), static_cast<DWORD>(text.size()));
        const bool fits = length < text.size();
        text.resize(length);
        if (fits) {
            return text;
        }
    }
}

} // namespace tarnwick
