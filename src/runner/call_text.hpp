#pragma once

#include "platform/tool_processes.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// The calls of the tools as texts for other programs, which run them. Whatever stands in a name or
// path, it cannot end the quotation that it stands in.

// As a POSIX shell takes it: each word in single quotes where it needs them.
[[nodiscard]] std::string shellLine(const ToolCall& call);

// The calls of a record, each only if the one before has succeeded, in the folder of the first.
[[nodiscard]] std::string shellLine(const std::vector<ToolCall>& calls);

// One object on one line, without its end. All texts are UTF-8.
[[nodiscard]] std::string jsonLine(std::string_view record, const std::vector<ToolCall>& calls);

} // namespace tarnwick
