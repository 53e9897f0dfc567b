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

// The command line by which the interpreter, at that path, runs the batch file and ends.
[[nodiscard]] std::wstring interpreterLine(std::wstring_view interpreter, std::wstring_view batch);

// The folder in which the interpreter is started for the batch file: the batch's own where
// `current` is a share, on which the interpreter refuses to stand; it would go to the system's
// folder. Empty where it takes over the current one.
[[nodiscard]] std::wstring folderToStartIn(std::wstring_view current, std::wstring_view batch);

} // namespace tarnwick
