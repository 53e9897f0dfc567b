#include "platform/win32/command_line.hpp"

#include "platform/win32/system_text.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick {
namespace {

constexpr std::wstring_view wordEnds = L" \t\"";

} // namespace

std::wstring_view behindProgramName(std::wstring_view commandLine) noexcept {
    // A quotation mark opens or closes a quoted stretch wherever it stands in the name.
    bool inQuotes = false;
    std::size_t end = 0;
    while (end < commandLine.size() &&
           (inQuotes || (commandLine[end] != L' ' && commandLine[end] != L'\t'))) {
        inQuotes = (commandLine[end] == L'"') != inQuotes;
        ++end;
    }
    commandLine.remove_prefix(end);
    commandLine.remove_prefix(std::min(commandLine.find_first_not_of(L" \t"), commandLine.size()));
    return commandLine;
}

std::string commandLineText(std::wstring_view commandLine) {
    if (auto text = toSystemText(commandLine); text) {
        return *std::move(text);
    }
    std::string text;
    bool inQuotes = false;
    while (!commandLine.empty()) {
        const auto end = commandLine.find_first_of(inQuotes ? L"\"" : wordEnds);
        const auto word = commandLine.substr(0, end);
        text += pathText(std::wstring(word));
        commandLine.remove_prefix(word.size());
        if (!commandLine.empty()) { // what ends the word is ASCII
            inQuotes = (commandLine.front() == L'"') != inQuotes;
            text += static_cast<char>(commandLine.front());
            commandLine.remove_prefix(1);
        }
    }
    return text;
}

} // namespace tarnwick
