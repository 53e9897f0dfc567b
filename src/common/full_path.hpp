#pragma once

#include "platform/code_page.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// The path of a file or folder in full: `path` itself, or seen from `folder` where it has no drive
// or no root, without blanks around it, ".", ".." and a final "\"; a drive's root is "C:\", and
// "C:" is that as well.
[[nodiscard]] std::string fullPath(std::string_view path, std::string_view folder,
                                   const CodePage& codePage = systemCodePage());

// Whether `path` says by itself where it lies: from the root of a drive, or in a share. Blanks
// around it do not count.
[[nodiscard]] bool isFullPath(std::string_view path);

// The drive of such a path, as "C:"; empty for one in a share ("\\server\share").
[[nodiscard]] std::string driveOf(std::string_view fullPath);

// The root of such a path ("C:\" or "\\server\share"), then the name of each folder below it.
[[nodiscard]] std::vector<std::string> foldersOnTheWay(std::string_view fullPath,
                                                       const CodePage& codePage = systemCodePage());

} // namespace tarnwick
