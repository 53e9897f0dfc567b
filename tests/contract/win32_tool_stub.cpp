#include "contract/tool_stub_system.hpp"
#include "support/start_process.hpp"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace tarnwick::test {

unsigned long ownProcess() {
    return GetCurrentProcessId();
}

void writeBytesAsTheyAre() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

void startSelf(const Arguments& arguments) {
    std::array<wchar_t, 1024> self{};
    GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size()));
    std::wstring line = std::wstring(L"\"") + self.data() + L'"';
    for (const std::string& argument : arguments) {
        line += L' ' + std::wstring(argument.begin(), argument.end());
    }
    const auto started = startProcess({.commandLine = line, .inheritsHandles = true});
    if (!started) {
        std::exit(98);
    }
    CloseHandle(started->hProcess);
    CloseHandle(started->hThread);
}

void crash() {
    // What the system does in the end; before that Wine would start a debugger.
    TerminateProcess(GetCurrentProcess(), EXCEPTION_ACCESS_VIOLATION);
    std::exit(97);
}

} // namespace tarnwick::test
