#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

// What this process is and was given. What has no place of its own in the system's code page stands
// in a text as "<U+0416>": no path holds a "<", so that it names nothing. A path is told under its
// short name instead, where the file system keeps one.
class Process {
  public:
    virtual ~Process() = default;

    // The command line behind the program's own name, as one text, as it was typed.
    [[nodiscard]] virtual std::string commandLine() const = 0;

    // The folder that holds the program's file, with or without a final "\"; empty when unknown.
    [[nodiscard]] virtual std::string programFolder() const = 0;

    // The variable's value; empty when it is not set.
    [[nodiscard]] virtual std::string environmentVariable(std::string_view name) const = 0;
};

} // namespace tarnwick
