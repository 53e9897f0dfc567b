#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

// What stands behind the program's own name, which may be quoted, without the blanks between.
[[nodiscard]] std::wstring_view behindProgramName(std::wstring_view commandLine) noexcept;

// The command line in the system's code page: a word that has no place there stands under the
// short name of the file that it names, or else as it is shown (see system_text.hpp). What stands
// in quotation marks is one word.
[[nodiscard]] std::string commandLineText(std::wstring_view commandLine);

} // namespace tarnwick
