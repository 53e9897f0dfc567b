#pragma once

#include "platform/files.hpp"
#include "runner/message_patterns.hpp"
#include "runner/run_log.hpp"

#include <string>
#include <string_view>
#include <unordered_map>

namespace tarnwick {

// Of each record whose messages are kept, whether one of them fails it.
using JudgedMessages = std::unordered_map<std::string, bool, TextHash, std::equal_to<>>;

// By the last that the message log at `path` says of each record. Raises what readMessageLog
// raises.
[[nodiscard]] JudgedMessages judgeKeptMessages(const Files& files, std::string_view path,
                                               const MessagePatterns& patterns);

} // namespace tarnwick
