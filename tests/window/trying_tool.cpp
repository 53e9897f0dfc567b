// A tool that tries the patience of whoever started it. It notes its start as a line in the file
// "started" in its own folder, and then does what the file "how" there says, word by word:
//
//   wait   until there is a file "enoughN" in that folder, N being the number of lines in "started"
//   work   what the program of its own name in the folder "real" there does with the same arguments
//   fail   ends with the status 3

#include "support/start_process.hpp"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

namespace {

namespace fs = std::filesystem;

fs::path ownPath() {
    std::wstring name(MAX_PATH, L'\0');
    name.resize(GetModuleFileNameW(nullptr, name.data(), MAX_PATH));
    return name;
}

// The number of this start.
std::ptrdiff_t noteStart(const fs::path& folder) {
    std::ofstream(folder / "started", std::ios::app) << GetCommandLineA() << '\n';
    std::ifstream started(folder / "started");
    return std::count(std::istreambuf_iterator<char>(started), {}, '\n');
}

void waitFor(const fs::path& file) {
    using namespace std::chrono_literals;
    while (!exists(file)) {
        std::this_thread::sleep_for(50ms);
    }
}

int workAs(const fs::path& program) {
    const auto process = tarnwick::startProcess(
        {.commandLine = GetCommandLineW(), .program = program.c_str(), .inheritsHandles = true});
    if (!process) {
        return 4;
    }
    WaitForSingleObject(process->hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process->hProcess, &status);
    CloseHandle(process->hThread);
    CloseHandle(process->hProcess);
    return static_cast<int>(status);
}

} // namespace

int main() {
    const fs::path self = ownPath();
    const fs::path folder = self.parent_path();
    const std::string number = std::to_string(noteStart(folder));
    int status = 0;
    std::ifstream how(folder / "how");
    for (std::string word; how >> word;) {
        if (word == "wait") {
            waitFor(folder / ("enough" + number));
        } else if (word == "work") {
            status = workAs(folder / "real" / self.filename());
        } else if (word == "fail") {
            status = 3;
        }
    }
    return status;
}
