#pragma once

#include "platform/tool_processes.hpp"
#include "program/installation.hpp"
#include "program/running_program.hpp"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tarnwick::test {

// tarnwick-run.exe beside the other programs, and the definition "batch.ini".
class ConsoleRunner : public testing::Test {
  protected:
    ConsoleRunner();

    // The definition with these lines behind its own.
    void define(std::string_view more) const;
    // Runs it to its end; what it said on both streams goes along.
    [[nodiscard]] ToolEnd run(std::vector<std::string> arguments) const;

    // The same, for a test that goes on meanwhile; `arguments` as they would be typed behind the
    // definition.
    [[nodiscard]] std::unique_ptr<RunningProgram> start(const std::string& arguments) const;

    // What the tools have made, by its path below "cns" or "out", in UTF-8.
    using Products = std::map<std::u8string, std::string>;
    [[nodiscard]] Products products() const;
    void removeProducts() const;

    // For the tool that tries one's patience in the place of MP: what it does each time.
    void tryPatience(std::string_view how) const;
    [[nodiscard]] int toolsStarted() const;

    Installation place;
};

} // namespace tarnwick::test
