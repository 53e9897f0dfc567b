#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tarnwick {

struct ProcessStart {
    std::wstring commandLine;
    const wchar_t* program = nullptr; // null: the first word of the command line
    bool inheritsHandles = false;
    std::wstring desktop = {}; // empty: the caller's own
};

// The started process, whose two handles are the caller's to close; none where the system's last
// error says why. On a busy machine, one process of some thousand dies under Wine before it has
// begun; the system tells that by an error of its own, and the next attempt succeeds.
[[nodiscard]] inline std::optional<PROCESS_INFORMATION> startProcess(ProcessStart start) {
    STARTUPINFOW how{};
    how.cb = sizeof how;
    how.lpDesktop = start.desktop.empty() ? nullptr : start.desktop.data();
    constexpr int attempts = 3;
    for (int attempt = 1; attempt <= attempts; ++attempt) {
        PROCESS_INFORMATION process{};
        if (CreateProcessW(start.program, start.commandLine.data(), nullptr, nullptr,
                           start.inheritsHandles ? TRUE : FALSE, 0, nullptr, nullptr, &how,
                           &process) != FALSE) {
            return process;
        }
        if (GetLastError() != ERROR_INTERNAL_ERROR) {
            break;
        }
    }
    return std::nullopt;
}

} // namespace tarnwick
