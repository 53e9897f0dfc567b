#pragma once

#include "processing/commands/tool_command.hpp"
#include "runner/known_tool_paths.hpp"

#include <string>
#include <vector>

namespace tarnwick {

// What the tool finds in its list of arguments: the same as a program finds there that is started
// by the command's line in a batch, but for the paths, which are those of this system. A word with
// blanks is several there. Raises what ToolPaths::toolPath raises.
[[nodiscard]] std::vector<std::string> argumentList(const ToolCommand& command,
                                                    const KnownToolPaths& paths);

// Whether such a line means what it says: no quotation mark stands in one of its texts, and no path
// ends in "\", before the one that closes it.
[[nodiscard]] bool staysArgumentList(const ToolCommand& command) noexcept;

} // namespace tarnwick
