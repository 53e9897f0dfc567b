#include "contract/tool_stub_system.hpp"

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
    std::array<char, 1024> self{};
    GetModuleFileNameA(nullptr, self.data(), static_cast<DWORD>(self.size()));
    std::string line = std::string("\"") + self.data() + '"';
    for (const std::string& argument : arguments) {
        line += ' ' + argument;
    }
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION started{};
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                       &started) == 0) {
        std::exit(98);
    }
    CloseHandle(started.hProcess);
    CloseHandle(started.hThread);
}

void crash() {
    // What the system does in the end; before that Wine would start a debugger.
    TerminateProcess(GetCurrentProcess(), EXCEPTION_ACCESS_VIOLATION);
    std::exit(97);
}

} // namespace tarnwick::test
