// A tool that tries the patience of whoever started it: it does what the text file "how" in its own
// folder says, "sleep SECONDS", "fail" or "forever", and notes its start in the file "started"
// there. "forever" ends when a file "enough" is there.

#include <windows.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace {

std::filesystem::path ownFolder() {
    std::string name(MAX_PATH, '\0');
    name.resize(GetModuleFileNameA(nullptr, name.data(), MAX_PATH));
    return std::filesystem::path(name).parent_path();
}

} // namespace

int main() {
    const auto folder = ownFolder();
    std::ofstream(folder / "started", std::ios::app) << GetCommandLineA() << '\n';
    std::string how;
    double seconds = 0;
    std::ifstream(folder / "how") >> how >> seconds;
    constexpr std::chrono::milliseconds step(100);
    if (how == "fail") {
        return 3;
    }
    if (how == "sleep") {
        std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
    }
    while (how == "forever" && !exists(folder / "enough")) {
        std::this_thread::sleep_for(step);
    }
    return 0;
}
