#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// A folder's path in full: `path` itself, or seen from `currentFolder` where it has no drive or no
// root, without ".", ".." and a final "\"; a drive's root is "C:\", and "C:" is that as well.
[[nodiscard]] std::string fullFolderPath(std::string_view path, std::string_view currentFolder);

// The drive of such a path, as "C:"; empty for one in a share ("\\server\share").
[[nodiscard]] std::string driveOf(std::string_view fullPath);

// The root of such a path ("C:\" or "\\server\share"), then the name of each folder below it.
[[nodiscard]] std::vector<std::string> foldersOnTheWay(std::string_view fullPath);

} // namespace tarnwick
