#pragma once

#include <windows.h>

namespace tarnwick {

// The process's own window of that class, or null: other programs on the same screen may have one
// as well.
[[nodiscard]] inline HWND windowOfProcess(DWORD process, const wchar_t* windowClass) {
    DWORD owner = 0;
    HWND window = nullptr;
    do {
        window = FindWindowExW(nullptr, window, windowClass, nullptr);
        GetWindowThreadProcessId(window, &owner);
    } while (window != nullptr && owner != process);
    return window;
}

} // namespace tarnwick
