#pragma once

#include "processing/commands/tool_command.hpp"
#include "runner/known_tool_paths.hpp"

#include <string>
#include <vector>

namespace tarnwick {

// What the tool finds in its list of arguments. But for the paths, which are those of this system,
// it is the same as when the command's line in a batch starts it: a word with blanks becomes
// several arguments. Raises what ToolPaths::toolPath raises.
[[nodiscard]] std::vector<std::string> argumentList(const ToolCommand& command,
                                                    const KnownToolPaths& paths);

// Whether a batch's line gives the tool just these arguments. It does not where one of its texts
// holds a quotation mark, or a path ends in "\", which would take the meaning from the closing one.
[[nodiscard]] bool staysArgumentList(const ToolCommand& command) noexcept;

} // namespace tarnwick
