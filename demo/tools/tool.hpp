#pragma once

#include "arguments.hpp"

#include <functional>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

namespace demo {

// What the two programs have in common.
struct Tool {
    std::string_view name;
    std::string_view usage; // its command line
    std::span<const OptionRule> options;
};

// Takes the arguments (without the program's name) apart, runs `work`, and tells `errors` what went
// wrong, in the language that was asked for. Returns the exit status.
int runTool(const Tool& tool, std::span<const std::string> arguments, std::ostream& errors,
            const std::function<void(const Arguments&, Language)>& work);

// Runs every step, also those behind one that fails, and raises the first ToolFailure at the end:
// one output that cannot be written must not cost the others.
void runAll(std::span<const std::function<void()>> steps);

// The two tools, run on their arguments. The information that was asked for without a file to
// write it to goes to `out`.
int runMp(std::span<const std::string> arguments, std::ostream& errors);
int runCns(std::span<const std::string> arguments, std::ostream& out, std::ostream& errors);

} // namespace demo
