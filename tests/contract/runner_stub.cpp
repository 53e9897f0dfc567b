// A program that runs two tools at once, for the contract of ToolProcesses: what becomes of them
// when it is ended. runner_stub TOOL FOLDER, both as the system names them.

#include "contract/runner_platform.hpp"

#include <string>
#include <thread>

int main(int count, char** words) {
    if (count != 3) {
        return 2;
    }
    const std::string tool = words[1];
    const std::string folder = words[2];
    const auto tools = tarnwick::makeToolProcesses();
    const auto run = [&](const std::vector<std::string>& arguments) {
        static_cast<void>(tools->run(
            {.program = tool, .arguments = arguments, .folder = folder, .timeLimit = {}}));
    };
    const std::jthread first([&] { run({"stay", "first"}); });
    const std::jthread second([&] { run({"stay_with_another", "second", "third"}); });
}
