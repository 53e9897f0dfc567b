#include "platform/win32/win32_process.hpp"

#include "platform/win32/command_line.hpp"
#include "platform/windows_path.hpp"

#include <windows.h>

namespace tarnwick {

std::string Win32Process::commandLine() const {
    return std::string(behindProgramName(GetCommandLineA()));
}

std::string Win32Process::programFolder() const {
    std::string path(MAX_PATH, '\0');
    for (;;) {
        const auto length =
            GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) { // 0 when it failed: the folder is unknown
            path.resize(length);
            return path.substr(0, path.size() - lastPart(path).size());
        }
        path.resize(path.size() * 2);
    }
}

std::string Win32Process::environmentVariable(std::string_view name) const {
    const std::string variable(name);
    std::string value(MAX_PATH, '\0');
    for (;;) {
        const auto length = GetEnvironmentVariableA(variable.c_str(), value.data(),
                                                    static_cast<DWORD>(value.size()));
        const bool fits = length < value.size();
        value.resize(length);
        if (fits) {
            return value;
        }
    }
}

} // namespace tarnwick
