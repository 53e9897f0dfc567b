#include "program/console_runner.hpp"

#include "platform/win32/win32_tool_processes.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarnwick::test {
namespace {

namespace fs = std::filesystem;

} // namespace

ConsoleRunner::ConsoleRunner() {
    place.add("tarnwick-run.exe");
    define("");
}

void ConsoleRunner::define(std::string_view more) const {
    place.write("batch.ini", place.definition() + std::string(more));
}

ToolEnd ConsoleRunner::run(std::vector<std::string> arguments) const {
    return Win32ToolProcesses().run({.program = place.path("tarnwick-run.exe"),
                                     .arguments = std::move(arguments),
                                     .folder = place.path(""),
                                     .timeLimit = {}});
}

std::unique_ptr<RunningProgram> ConsoleRunner::start(const std::string& arguments) const {
    return std::make_unique<RunningProgram>(fs::path(place.path("tarnwick-run.exe")),
                                            '"' + place.path("batch.ini") + "\" " + arguments);
}

ConsoleRunner::Products ConsoleRunner::products() const {
    Products products;
    for (const char* const folder : {"cns", "out"}) {
        for (const auto& entry : fs::directory_iterator(place.path(folder))) {
            std::ifstream file(entry.path(), std::ios::binary);
            products[fs::path(folder).u8string() + u8'\\' + entry.path().filename().u8string()] =
                std::string{std::istreambuf_iterator<char>(file), {}};
        }
    }
    return products;
}

void ConsoleRunner::removeProducts() const {
    for (const char* const folder : {"cns", "out"}) {
        fs::remove_all(place.path(folder));
        place.makeFolder(folder);
    }
}

void ConsoleRunner::tryPatience(std::string_view how) const {
    place.makeFolder("real");
    fs::copy_file(place.path("mp.exe"), place.path("real\\mp.exe"));
    place.replaceMP("tests/window/trying_tool.exe");
    place.write("how", how);
}

int ConsoleRunner::toolsStarted() const {
    return static_cast<int>(std::ranges::count(place.read("started"), '\n'));
}

} // namespace tarnwick::test
