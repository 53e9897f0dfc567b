#pragma once

#include "definition/batch_definition.hpp"
#include "platform/files.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// A definition may name files and folders by paths that do not begin at a root; people write such
// INI files to move them with their folders. The tools run in the input folder, the program does
// not: so every such path is resolved by these functions, both where it is checked and where it is
// given to a tool. The definition's own texts stay as they are. Full paths and blank ones are
// returned unchanged.

// A tool, a configuration file or an aliases file: seen from the program's folder.
[[nodiscard]] std::string resolvedFile(std::string_view sAppFolder, std::string_view path);

// An output folder: seen from the input folder.
[[nodiscard]] std::string resolvedFolder(std::string_view sInputFolder, const Files& files,
                                         std::string_view folder);

// All paths of the definition that tools are given, resolved: for whoever builds commands.
[[nodiscard]] BatchDefinition withResolvedPaths(BatchDefinition definition, const Files& files);

} // namespace tarnwick
