#include "reference/plain_command_line.hpp"

#include "platform/case_folding.hpp"
#include "reference/plain_text.hpp"

namespace tarnwick::reference {

std::optional<CommandLine> commandLine(std::string_view text) {
    const std::string normal = " " + trimmed(std::string(text));
    const std::string upper = upperCase(normal);
    if (upper.find(" ?") != std::string::npos || upper.find(" -I") == std::string::npos) {
        return std::nullopt;
    }
    CommandLine result;
    for (const std::string& part : split(normal, " -")) {
        const std::string piece = trimmed(part);
        if (piece.empty()) {
            continue;
        }
        std::string argument = trimmed(piece.substr(1));
        switch (upperCase(piece).front()) {
        case 'I':
            std::erase(argument, '"');
            result.sINIFile = argument;
            break;
        case 'F':
            result.sInputFolder = argument;
            break;
        case 'E':
            result.sInputExtensions = argument;
            break;
        case 'N':
            result.bNotify = true;
            break;
        default:
            return std::nullopt;
        }
    }
    return result;
}

} // namespace tarnwick::reference
