// Measures the time from the start of a program to a window that can be used (it is shown, painted
// and answers), for Tarnwick and for a bare window with as many controls, in turns.
//
// start_bench TARNWICK BARE_WINDOW: Tarnwick must come up without a message, so with a tool beside
// it.

#include "timing.hpp"

#include <windows.h>

#include <string>

namespace tarnwick {
namespace {

constexpr int rounds = 15;

// The process's own visible main window with a caption; null when there is none yet.
HWND windowOf(DWORD process) {
    struct Search {
        DWORD process;
        HWND found;
    } search{process, nullptr};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(parameter); // NOLINT(*-int-to-ptr)
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner != wanted.process || IsWindowVisible(window) == FALSE ||
                GetWindowTextLengthA(window) == 0) {
                return TRUE;
            }
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

int controlsOf(HWND window) {
    int count = 0;
    EnumChildWindows(
        window,
        [](HWND, LPARAM parameter) -> BOOL {
            ++*reinterpret_cast<int*>(parameter); // NOLINT(*-int-to-ptr)
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

struct Started {
    double milliseconds = 0;
    int controls = 0;
};

Started start(std::string commandLine) {
    STARTUPINFOA how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION process{};
    Timing timing;
    Started started;
    timing.measure([&] {
        CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &how, &process);
        // Idle: everything that showing it has brought about has been handled.
        WaitForInputIdle(process.hProcess, INFINITE);
        HWND window = nullptr;
        while ((window = windowOf(process.dwProcessId)) == nullptr) {
            Sleep(1);
        }
        UpdateWindow(window);
        SendMessageA(window, WM_NULL, 0, 0);
        started.controls = controlsOf(window);
    });
    started.milliseconds = timing.median();
    PostMessageA(windowOf(process.dwProcessId), WM_CLOSE, 0, 0);
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return started;
}

int run(const std::string& tarnwick, const std::string& bareWindow) {
    const int controls = start(tarnwick).controls;
    const std::string bareCommand = bareWindow + ' ' + std::to_string(controls);
    start(bareCommand);
    Timing program;
    Timing bare;
    for (int round = 0; round < rounds; ++round) {
        program.add(start(tarnwick).milliseconds);
        bare.add(start(bareCommand).milliseconds);
    }
    std::cout << "\nFrom start to a usable window with " << controls
              << " controls: milliseconds, of a bare window, ratio\n";
    printRatio("Tarnwick / bare window", program.median(), bare.median(), 1.5);
    return 0;
}

} // namespace
} // namespace tarnwick

int main(int argc, char* argv[]) {
    return argc == 3 ? tarnwick::run(argv[1], argv[2]) : 2;
}
