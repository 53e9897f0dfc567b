#pragma once

#include "platform/code_page.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// The parts of Windows paths, by their characters: in some code pages "\" is also the second byte
// of a letter. Nothing here asks the file system.

// Whether `path` could name a file on Windows: no control character and none of "<>|*?, and ":"
// only behind a drive's letter. (A ":" elsewhere would name a stream inside a file.) Whatever
// the file system in use would take, the same names are refused everywhere.
[[nodiscard]] bool isPossiblePath(std::string_view path,
                                  const CodePage& codePage = systemCodePage()) noexcept;

// The same for a path whose last part may hold "*" and "?".
[[nodiscard]] bool isPossiblePattern(std::string_view path,
                                     const CodePage& codePage = systemCodePage()) noexcept;

// Whether the path begins with a network share, or would.
[[nodiscard]] inline bool isOnShare(std::string_view path) noexcept {
    return path.starts_with(R"(\\)");
}

// Whether the path begins with a drive: a letter of ASCII and a ":".
[[nodiscard]] bool beginsWithDrive(std::string_view path) noexcept;

// Whether `text` holds "*" or "?".
[[nodiscard]] bool hasWildcard(std::string_view text) noexcept;

// Whether a "\" stands in the path: it is more than a bare name.
[[nodiscard]] bool hasBackslash(std::string_view path,
                                const CodePage& codePage = systemCodePage()) noexcept;

// What follows the last separator ("\", "/", or ":" behind the drive's letter).
[[nodiscard]] std::string_view lastPart(std::string_view path,
                                        const CodePage& codePage = systemCodePage()) noexcept;

// What follows the last "\"; the whole path when there is none.
[[nodiscard]] std::string GetFileName(std::string_view path,
                                      const CodePage& codePage = systemCodePage());

// What stands before the last "\"; empty when there is none.
[[nodiscard]] std::string GetFolderPath(std::string_view path,
                                        const CodePage& codePage = systemCodePage());

// The file name without folders and without its last extension. Here, and only here, "/" separates
// folders too, and the blanks around every part are dropped.
[[nodiscard]] std::string GetBaseName(std::string_view path,
                                      const CodePage& codePage = systemCodePage());

// `folder` with a final "\": appended only when it does not already end in one.
[[nodiscard]] std::string withBackslash(std::string_view folder,
                                        const CodePage& codePage = systemCodePage());

// The file of that name and extension (dot included) in that folder.
[[nodiscard]] std::string joinPath(std::string_view folder, std::string_view name,
                                   std::string_view extension = {},
                                   const CodePage& codePage = systemCodePage());

} // namespace tarnwick
