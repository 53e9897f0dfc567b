#include "arguments.hpp"

#include "tool_failure.hpp"

#include <algorithm>

namespace demo {
namespace {

[[noreturn]] void fail(Language language, Message message, std::string_view value = {}) {
    throw ToolFailure(Status::BadArguments, say(language, message, {value}));
}

bool isOption(std::string_view argument) {
    return argument.starts_with('-');
}

void checkComplete(const Arguments& arguments, bool inputGiven, std::span<const OptionRule> rules,
                   Language language) {
    for (const auto& rule : rules) {
        if (rule.required && arguments.find(rule.name) == nullptr) {
            fail(language, Message::OptionMissing, rule.name);
        }
    }
    if (!inputGiven) {
        fail(language, Message::InputMissing);
    }
}

} // namespace

const std::string* Arguments::find(std::string_view option) const {
    const auto found = options.find(option);
    return found == options.end() ? nullptr : &found->second;
}

LanguageChoice chooseLanguage(std::span<const std::string> arguments) {
    const auto option = std::ranges::find(arguments, "-l");
    if (option == arguments.end() || option + 1 == arguments.end()) {
        return {};
    }
    const std::string& code = *(option + 1);
    if (const auto language = languageOfCode(code)) {
        return {.language = *language, .warning = {}};
    }
    return {.language = Language::English,
            .warning =
                "warning: there are no messages in the language \"" + code + "\"; English is used"};
}

Arguments parseArguments(std::span<const std::string> arguments, std::span<const OptionRule> rules,
                         Language language) {
    Arguments result;
    bool inputGiven = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto& argument = arguments[i];
        if (!isOption(argument)) {
            if (inputGiven) {
                fail(language, Message::SecondInput, argument);
            }
            result.input = argument;
            inputGiven = true;
            continue;
        }
        const auto rule = std::ranges::find(rules, argument, &OptionRule::name);
        if (rule == rules.end()) {
            fail(language, Message::UnknownOption, argument);
        }
        if (result.find(argument) != nullptr) {
            fail(language, Message::OptionTwice, argument);
        }
        if (rule->takesValue && (i + 1 == arguments.size() || isOption(arguments[i + 1]))) {
            fail(language, Message::OptionWithoutValue, argument);
        }
        result.options[argument] = rule->takesValue ? arguments[++i] : std::string();
    }
    checkComplete(result, inputGiven, rules, language);
    return result;
}

} // namespace demo
