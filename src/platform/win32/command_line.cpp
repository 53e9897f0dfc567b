#include "platform/win32/command_line.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick {

std::string_view behindProgramName(std::string_view commandLine) noexcept {
    // A quotation mark opens or closes a quoted stretch wherever it stands in the name.
    bool inQuotes = false;
    std::size_t end = 0;
    while (end < commandLine.size() &&
           (inQuotes || (commandLine[end] != ' ' && commandLine[end] != '\t'))) {
        inQuotes = (commandLine[end] == '"') != inQuotes;
        ++end;
    }
    commandLine.remove_prefix(end);
    commandLine.remove_prefix(std::min(commandLine.find_first_not_of(" \t"), commandLine.size()));
    return commandLine;
}

} // namespace tarnwick
