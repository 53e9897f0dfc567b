#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// What "-I INI_file [-F input_folder] [-e input_file_extensions] [-n]" says.
struct CommandLine {
    std::string sINIFile;         // without quotation marks
    std::string sInputFolder;     // as typed; empty when not given
    std::string sInputExtensions; // as typed; empty when not given
    bool bNotify = false;

    bool operator==(const CommandLine&) const = default;
};

// Nothing when the text asks for help, names no INI file or has an unknown option. Options are told
// by their first letter, in any case, so that -Isettings.ini and -notify work; a later option of
// the same letter replaces an earlier one. " -" begins an option even between quotation marks.
[[nodiscard]] std::optional<CommandLine> parseCommandLine(std::string_view text);

} // namespace tarnwick
