#pragma once

#include <string>

namespace tarnwick::reference {

// As relativePath with withSlashes behind it.
[[nodiscard]] std::string relativeLink(const std::string& from, const std::string& to);

[[nodiscard]] std::string baseName(const std::string& path);

} // namespace tarnwick::reference
