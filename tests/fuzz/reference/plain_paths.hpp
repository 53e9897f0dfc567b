#pragma once

#include <string>

namespace tarnwick::reference {

// As relativePath with withSlashes behind it.
[[nodiscard]] std::string relativeLink(const std::string& from, const std::string& to);

[[nodiscard]] std::string baseName(const std::string& path);

// `folder` is a full path.
[[nodiscard]] std::string fullPath(const std::string& path, const std::string& folder);

[[nodiscard]] std::string lastPart(const std::string& path);
[[nodiscard]] bool isPossiblePath(const std::string& path);
[[nodiscard]] bool isPossiblePattern(const std::string& path);
[[nodiscard]] std::string withDefaultExtension(const std::string& path, const std::string& filter);

} // namespace tarnwick::reference
