#pragma once

#include "messages.hpp"

#include <map>
#include <span>
#include <string>
#include <string_view>

namespace demo {

// One option that a tool takes.
struct OptionRule {
    std::string_view name; // with its hyphen
    bool takesValue = true;
    bool required = false;
};

// A command line taken apart.
struct Arguments {
    std::map<std::string, std::string, std::less<>> options; // by name; no value: empty
    std::string input;

    // The option's value; null when the option is not given.
    [[nodiscard]] const std::string* find(std::string_view option) const;
};

// The language that the command line asks for. For a code that no messages exist for it is
// English, and `warning` says so. Asked first, so that what is wrong with the rest of the command
// line is told in that language.
struct LanguageChoice {
    Language language = Language::English;
    std::string warning;
};
[[nodiscard]] LanguageChoice chooseLanguage(std::span<const std::string> arguments);

// Takes the arguments apart: options in any order and one input file. What begins with "-" is an
// option, never a value. Raises ToolFailure (BadArguments) at the first thing that is wrong.
[[nodiscard]] Arguments parseArguments(std::span<const std::string> arguments,
                                       std::span<const OptionRule> rules, Language language);

} // namespace demo
