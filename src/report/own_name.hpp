#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

// The message with "…" in place of each file that is called as its record is, whatever its
// extension, and of the path before it: in these may be blanks, so that nobody could tell their
// ends who does not know the name. Only a whole name counts, with an extension and with no letter
// beside it: of a record "error.met" the word "error" stays. A path begins at the nearest drive,
// "\\", "/", ".", ".." or "~" before the name where one can begin. All is UTF-8.
[[nodiscard]] std::string withoutOwnName(std::string_view message, std::string_view record);

// Two to five letters and digits of ASCII, first a letter: what makes a word the name of a file.
[[nodiscard]] bool isExtension(std::string_view text) noexcept;

} // namespace tarnwick
