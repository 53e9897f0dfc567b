#pragma once

#include "platform/console_platform.hpp"
#include "runner/run_command.hpp"

#include <string>
#include <variant>
#include <vector>

namespace tarnwick {

// What the user wants of the program. Paths are as they were typed.
struct RunnerOptions {
    enum class Command : std::uint8_t { Run, PrintCalls, Report };

    Command command = Command::Run;
    std::string definition;
    std::string state;
    JobRequest job;
    bool shareOfEngine = false; // the share is the one that the environment tells
    RunSettings settings;
    ConsoleStyle style;
    ConsoleOptions console;
    CallFormat format = CallFormat::Sh;
    bool dryRun = false;
    std::vector<std::string> reports; // files; reportKindOf knows the kind of each
};

// What is printed instead of doing anything.
struct PrintedText {
    std::string text;
    bool wrongUse = false; // else help or version, which were asked for
};

// `processors` is how many records are run at once where the user does not say.
[[nodiscard]] std::variant<RunnerOptions, PrintedText>
parseOptions(std::vector<std::string> arguments, std::size_t processors);

} // namespace tarnwick
