#include "processing/commands/tool_command.hpp"

#include <cstddef>

namespace tarnwick {
namespace {

constexpr std::string_view callWord = "call ";

std::size_t lengthOf(const ToolCommand& command) {
    std::size_t length = callWord.size() + command.tool.size() + 2;
    for (const ToolArgument& argument : command.arguments) {
        length += argument.text.size() + 3;
    }
    return length;
}

} // namespace

std::string batchLine(const ToolCommand& command) {
    std::string line;
    line.reserve(lengthOf(command));
    line.append(callWord).append(1, '"').append(command.tool).append(1, '"');
    for (const ToolArgument& argument : command.arguments) {
        if (argument.kind == ToolArgument::Kind::Word) {
            line.append(1, ' ').append(argument.text);
        } else {
            line.append(" \"").append(argument.text).append(1, '"');
        }
    }
    return line;
}

} // namespace tarnwick
