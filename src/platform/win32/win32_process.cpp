#include "platform/win32/win32_process.hpp"

#include "platform/win32/command_line.hpp"
#include "platform/win32/filled_text.hpp"
#include "platform/win32/system_text.hpp"

#include <windows.h>

namespace tarnwick {

std::string Win32Process::commandLine() const {
    return commandLineText(behindProgramName(GetCommandLineW()));
}

std::string Win32Process::programFolder() const {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const auto length =
            GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) { // 0 when it failed: the folder is unknown
            path.resize(length);
            return pathText(path.substr(0, path.rfind(L'\\') + 1));
        }
        path.resize(path.size() * 2);
    }
}

std::string Win32Process::environmentVariable(std::string_view name) const {
    const auto variable = toWide(name);
    return pathText(filledBy([&variable](wchar_t* buffer, DWORD size) {
        return GetEnvironmentVariableW(variable.c_str(), buffer, size);
    }));
}

} // namespace tarnwick
