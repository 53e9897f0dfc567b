#pragma once

#include "messages.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace demo {

// The lines of a text file, without their ends (CR LF, LF or CR) and with tabs made into blanks up
// to the next multiple of 8. Raises ToolFailure (Unreadable).
[[nodiscard]] std::vector<std::string> readLines(const std::string& path, Language language);

// Writes `content` as the file `path`, byte for byte. Raises ToolFailure (Unwritable).
void writeFile(const std::string& path, std::string_view content, Language language);

// `name` in `folder`, joined by the separator that the folder itself uses, else by "\".
[[nodiscard]] std::string inFolder(std::string_view folder, std::string_view name);

// Whether a path is a file name alone, without a folder or a drive.
[[nodiscard]] bool isBareName(std::string_view path);

} // namespace demo
