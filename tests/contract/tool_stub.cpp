// A tool for the contract of ToolProcesses: tool_stub WHAT [ARGUMENT...]

#include "contract/tool_stub_system.hpp"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;
using tarnwick::test::Arguments;

// Longer than any test waits, and no longer than a forgotten process may stay.
constexpr std::chrono::minutes aLongTime(10);
constexpr std::chrono::milliseconds aMoment(20);

int status(const Arguments& arguments) {
    return std::stoi(arguments.at(0));
}

// Its arguments, one a line.
int echo(const Arguments& arguments) {
    for (const std::string& argument : arguments) {
        std::cout << argument << '\n';
    }
    return 0;
}

// So many times that text.
int say(const Arguments& arguments) {
    for (int count = std::stoi(arguments.at(0)); count > 0; --count) {
        std::cout << arguments.at(1);
    }
    return 0;
}

int sayOnBothStreams(const Arguments& /*arguments*/) {
    std::cout << "out " << std::flush;
    std::cerr << "error " << std::flush;
    std::cout << "out again";
    return 0;
}

int sayForEver(const Arguments& /*arguments*/) {
    for (;;) {
        std::cout << "and so on ";
    }
}

// How many bytes there are to read.
int read(const Arguments& /*arguments*/) {
    int count = 0;
    while (std::cin.get() != std::char_traits<char>::eof()) {
        ++count;
    }
    std::cout << count;
    return 0;
}

// Makes the file, where it stands.
int make(const Arguments& arguments) {
    std::ofstream(arguments.at(0)) << "made";
    return 0;
}

// Writes the number of its process into the file, in one step, and stays.
int stay(const Arguments& arguments) {
    const std::string part = arguments.at(0) + ".part";
    std::ofstream(part) << tarnwick::test::ownProcess();
    fs::rename(part, arguments.at(0));
    std::this_thread::sleep_for(aLongTime);
    return 99;
}

// Starts another that stays, which has the same streams, and ends when it is at work.
int leaveOneBehind(const Arguments& arguments) {
    tarnwick::test::startSelf({"stay", arguments.at(0)});
    while (!fs::exists(arguments.at(0))) {
        std::this_thread::sleep_for(aMoment);
    }
    std::cout << "left one";
    return 0;
}

int stayWithAnother(const Arguments& arguments) {
    tarnwick::test::startSelf({"stay", arguments.at(1)});
    return stay(arguments);
}

int crash(const Arguments& /*arguments*/) {
    tarnwick::test::crash();
}

const std::map<std::string_view, std::function<int(const Arguments&)>> things{
    {"status", status},
    {"echo", echo},
    {"say", say},
    {"both", sayOnBothStreams},
    {"say_for_ever", sayForEver},
    {"read", read},
    {"make", make},
    {"stay", stay},
    {"leave_one", leaveOneBehind},
    {"stay_with_another", stayWithAnother},
    {"crash", crash},
};

} // namespace

int main(int count, char** words) {
    tarnwick::test::writeBytesAsTheyAre();
    const Arguments arguments(words + 1, words + count);
    return things.at(arguments.at(0))(Arguments(arguments.begin() + 1, arguments.end()));
}
