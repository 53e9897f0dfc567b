#pragma once

#include <string_view>

namespace tarnwick {

// Whether `path` could name a file on Windows: no control character and none of "<>|*?, and ":"
// only behind a drive's letter. (A ":" elsewhere would name a stream inside a file.) Whatever
// the file system in use would take, the same names are refused everywhere.
[[nodiscard]] bool isPossiblePath(std::string_view path) noexcept;

// The same for a path whose last part may hold "*" and "?".
[[nodiscard]] bool isPossiblePattern(std::string_view path) noexcept;

// What follows the last separator ("\", "/", or ":" behind the drive's letter).
[[nodiscard]] std::string_view lastPart(std::string_view path) noexcept;

// Whether `text` holds "*" or "?".
[[nodiscard]] bool hasWildcard(std::string_view text) noexcept;

} // namespace tarnwick
