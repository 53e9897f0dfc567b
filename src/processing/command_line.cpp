#include "processing/command_line.hpp"

#include "common/text.hpp"

namespace tarnwick {
namespace {

constexpr std::string_view optionStart = " -";

// False for an unknown option. `piece` is what stands between two option starts, trimmed.
bool takeOption(std::string_view piece, CommandLine& commandLine) {
    if (piece.empty()) {
        return true;
    }
    const std::string_view argument = trim(piece.substr(1));
    switch (systemCodePage().upperCase(piece.front())) {
    case 'I':
        commandLine.sINIFile = without(argument, '"');
        return true;
    case 'F':
        commandLine.sInputFolder = argument;
        return true;
    case 'E':
        commandLine.sInputExtensions = argument;
        return true;
    case 'N':
        commandLine.bNotify = true;
        return true;
    default:
        return false;
    }
}

} // namespace

std::optional<CommandLine> parseCommandLine(std::string_view text) {
    const std::string normalised = " " + std::string(trim(text));
    if (normalised.find(" ?") != std::string::npos ||
        upperCase(normalised).find(" -I") == std::string::npos) {
        return std::nullopt;
    }
    CommandLine commandLine;
    std::string_view rest = normalised;
    while (true) {
        const auto end = rest.find(optionStart);
        if (!takeOption(trim(rest.substr(0, end)), commandLine)) {
            return std::nullopt;
        }
        if (end == std::string_view::npos) {
            return commandLine;
        }
        rest.remove_prefix(end + optionStart.size());
    }
}

} // namespace tarnwick
