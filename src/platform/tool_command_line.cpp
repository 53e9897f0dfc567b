#include "platform/tool_command_line.hpp"

#include <cstddef>

namespace tarnwick {
namespace {

// Blanks would end the argument, and some programs take "*" and "?" outside quotation marks for a
// pattern of files.
bool canBeBare(std::wstring_view argument) {
    return !argument.empty() && argument.find_first_of(L" \t\n\v\"*?") == std::wstring_view::npos;
}

// Before a quotation mark a backslash stands for itself only when it is doubled; elsewhere it is a
// character like any.
void appendQuoted(std::wstring& line, std::wstring_view argument) {
    line += L'"';
    std::size_t backslashes = 0;
    for (const wchar_t character : argument) {
        if (character == L'"') {
            line.append(backslashes + 1, L'\\');
        }
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        line += character;
    }
    line.append(backslashes, L'\\');
    line += L'"';
}

} // namespace

std::wstring commandLineOf(std::wstring_view program, std::span<const std::wstring> arguments) {
    // In the program's name a backslash is always a character like any.
    std::wstring line = L'"' + std::wstring(program) + L'"';
    for (const std::wstring& argument : arguments) {
        line += L' ';
        if (canBeBare(argument)) {
            line += argument;
        } else {
            appendQuoted(line, argument);
        }
    }
    return line;
}

} // namespace tarnwick
