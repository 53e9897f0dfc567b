#include "runner/argument_list.hpp"

#include "platform/windows_path.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

constexpr std::string_view blanks = " \t";

void addWords(std::string_view text, std::vector<std::string>& arguments) {
    while (!text.empty()) {
        const auto word = text.substr(0, text.find_first_of(blanks));
        if (!word.empty()) {
            arguments.emplace_back(word);
        }
        text.remove_prefix(std::min(word.size() + 1, text.size()));
    }
}

} // namespace

std::vector<std::string> argumentList(const ToolCommand& command, const KnownToolPaths& paths) {
    std::vector<std::string> arguments;
    arguments.reserve(command.arguments.size());
    for (const ToolArgument& argument : command.arguments) {
        if (argument.kind == ToolArgument::Kind::Word) {
            addWords(argument.text, arguments);
        } else if (!hasBackslash(argument.text)) {
            arguments.push_back(argument.text); // a bare name, in the folder that the tool works in
        } else if (argument.kind == ToolArgument::Kind::Settings) {
            arguments.push_back(paths.toolPathOfExisting(argument.text));
        } else {
            arguments.push_back(paths.toolPath(argument.text));
        }
    }
    return arguments;
}

bool staysArgumentList(const ToolCommand& command) noexcept {
    return std::ranges::none_of(command.arguments, [](const ToolArgument& argument) {
        return argument.text.contains('"') ||
               (argument.kind != ToolArgument::Kind::Word && argument.text.ends_with('\\'));
    });
}

} // namespace tarnwick
