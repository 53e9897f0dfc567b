#include "tool.hpp"

#include "tool_failure.hpp"

#include <optional>
#include <ostream>

namespace demo {

int runTool(const Tool& tool, std::span<const std::string> arguments, std::ostream& errors,
            const std::function<void(const Arguments&, Language)>& work) {
    const auto [language, warning] = chooseLanguage(arguments);
    if (!warning.empty()) {
        errors << tool.name << ": " << warning << '\n';
    }
    try {
        work(parseArguments(arguments, tool.options, language), language);
        return static_cast<int>(Status::Success);
    } catch (const ToolFailure& failure) {
        errors << tool.name << ": " << failure.what() << '\n';
        if (failure.status() == Status::BadArguments) {
            errors << say(language, Message::UsageIs, {tool.usage}) << '\n';
        }
        return static_cast<int>(failure.status());
    }
}

void runAll(std::span<const std::function<void()>> steps) {
    std::optional<ToolFailure> first;
    for (const auto& step : steps) {
        try {
            step();
        } catch (const ToolFailure& failure) {
            first = first ? first : failure;
        }
    }
    if (first) {
        throw ToolFailure(*first);
    }
}

} // namespace demo
