// A program that asks the system for what a runner of tools does, for the contracts: what others
// see of it, and what becomes of it when it is ended. runner_stub WHAT [ARGUMENT...], with files as
// the system names them.

#include "contract/runner_platform.hpp"
#include "support/eventually.hpp"

#include <chrono>
#include <functional>
#include <iostream>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace tarnwick {
namespace {

using Arguments = std::vector<std::string>;

// TOOL FOLDER: two tools at once, which stay.
int runTools(const Arguments& arguments) {
    const auto tools = makeToolProcesses();
    const auto run = [&](const Arguments& words) {
        static_cast<void>(tools->run({.program = arguments.at(0),
                                      .arguments = words,
                                      .folder = arguments.at(1),
                                      .timeLimit = {}}));
    };
    const std::jthread first([&] { run({"stay", "first"}); });
    const std::jthread second([&] { run({"stay_with_another", "second", "third"}); });
    return 0;
}

// FILE: holds the lock, and stays.
int holdLock(const Arguments& arguments) {
    const auto held = takeLock(arguments.at(0), "another process");
    std::this_thread::sleep_for(std::chrono::minutes(10));
    return held == nullptr ? 1 : 0;
}

// WORD...: is asked or ordered to end, one after the other, and says what it hears.
int listen(const Arguments& arguments) {
    std::mutex guard;
    std::vector<std::string> heard;
    const auto count = [&] {
        const std::scoped_lock lock(guard);
        return heard.size();
    };
    const auto interruptions = makeInterruptions();
    interruptions->listen([&](Interruption interruption) {
        const std::scoped_lock lock(guard);
        heard.emplace_back(interruption == Interruption::Asked ? "asked" : "ordered");
    });
    for (const std::string& word : arguments) {
        const auto before = count();
        interruptSelf(word == "ask" ? Interruption::Asked : Interruption::Ordered);
        if (!eventually([&] { return count() > before; })) {
            return 1;
        }
    }
    for (const std::string& word : heard) {
        std::cout << word << ' ';
    }
    return 0;
}

// Writes to both streams, and says what they are.
int show(const Arguments& /*arguments*/) {
    const auto terminal = makeTerminal();
    for (const Stream stream : {Stream::Output, Stream::Error}) {
        terminal->write(stream, terminal->isTerminal(stream) ? "terminal\n" : "caf\xE9\n");
    }
    terminal->write(Stream::Output, std::to_string(terminal->width()) + std::string("\0\n", 2));
    return 0;
}

// How many writes of four find nobody.
int showNobody(const Arguments& /*arguments*/) {
    loseOutput();
    const auto terminal = makeTerminal();
    int lost = 0;
    for (int time = 0; time < 3; ++time) {
        lost += terminal->write(Stream::Output, "x") ? 0 : 1;
    }
    lost += terminal->write(Stream::Error, "still heard ") ? 0 : 1;
    terminal->write(Stream::Error, std::to_string(lost));
    return 0;
}

const std::map<std::string_view, std::function<int(const Arguments&)>> things{
    {"run_tools", runTools}, {"hold_lock", holdLock},     {"listen", listen},
    {"show", show},          {"show_nobody", showNobody},
};

} // namespace
} // namespace tarnwick

int main(int count, char** words) {
    const tarnwick::Arguments arguments(words + 1, words + count);
    return tarnwick::things.at(arguments.at(0))(
        tarnwick::Arguments(arguments.begin() + 1, arguments.end()));
}
