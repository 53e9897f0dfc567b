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

std::wstring interpreterLine(std::wstring_view interpreter, std::wstring_view batch) {
    // /s: the outer quotation marks are taken away and nothing else is changed. /d: no command
    // that the user has set to run first. /e:on /v:off: as the interpreter is by itself, whatever
    // the user has set: delayed expansion would take the "!" out of names.
    return std::wstring(1, L'"')
        .append(interpreter)
        .append(LR"(" /d /e:on /v:off /s /c "")")
        .append(batch)
        .append(LR"("")");
}

std::wstring folderToStartIn(std::wstring_view current, std::wstring_view batch) {
    return current.starts_with(LR"(\\)") ? std::wstring(batch.substr(0, batch.rfind(L'\\') + 1))
                                         : std::wstring();
}

} // namespace tarnwick
