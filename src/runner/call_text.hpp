#pragma once

#include "platform/tool_processes.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// The calls for other engines. What they print is no longer ours: nothing in a text can end its
// quotation.

// As a POSIX shell takes it: each word in single quotes where it needs them.
[[nodiscard]] std::string shellLine(const ToolCall& call);

// The calls of a record, each only if the one before has succeeded, in the folder of the first.
[[nodiscard]] std::string shellLine(const std::vector<ToolCall>& calls);

// One object on one line, without its end. All texts are UTF-8.
[[nodiscard]] std::string jsonLine(std::string_view record, const std::vector<ToolCall>& calls);

} // namespace tarnwick
