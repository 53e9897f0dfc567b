// out_of_sight COMMAND LINE: runs it on a desktop of its own in a window station that has no
// screen, as the system runs a task whether anybody is logged on or not. Waits for it and ends with
// its status; with 99 where it cannot be run so.

#include "platform/win32/command_line.hpp"
#include "platform/win32/handle.hpp"
#include "support/start_process.hpp"

#include <windows.h>

#include <string>

namespace {

constexpr int notRun = 99;

// A desktop is made in the station of the process that asks for it.
bool makeDesktop() {
    HWINSTA own = GetProcessWindowStation();
    HWINSTA station = CreateWindowStationW(L"night", 0, WINSTA_ALL_ACCESS, nullptr);
    if (station == nullptr || SetProcessWindowStation(station) == FALSE) {
        return false;
    }
    HDESK desktop = CreateDesktopW(L"tasks", nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    return SetProcessWindowStation(own) != FALSE && desktop != nullptr;
}

} // namespace

int wmain() {
    if (!makeDesktop()) { // both live as long as this process
        return notRun;
    }
    const auto started = tarnwick::startProcess(
        {.commandLine = std::wstring(tarnwick::behindProgramName(GetCommandLineW())),
         .desktop = L"night\\tasks"});
    if (!started) {
        return notRun;
    }
    const tarnwick::Handle thread(started->hThread);
    const tarnwick::Handle process(started->hProcess);
    DWORD status = notRun;
    WaitForSingleObject(process.get(), INFINITE);
    GetExitCodeProcess(process.get(), &status);
    return static_cast<int>(status);
}
