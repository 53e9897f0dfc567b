#pragma once

#include "platform/files.hpp"
#include "runner/message_log.hpp"
#include "runner/message_patterns.hpp"
#include "runner/run_log.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarnwick {

// What patterns say of a record by its messages.
enum class Judgement : std::uint8_t {
    Clean,
    Fails,       // one of its messages does
    PartlyKnown, // none that is kept does; others are left out or cut, and no such patterns saw
                 // them
    Unknown,     // its messages are not known
};

// By what is kept, where no run with these patterns has judged all that was said.
[[nodiscard]] Judgement judgementOf(const MessagesLine& line, const MessagePatterns& patterns);

// Of each record whose messages are kept.
using JudgedMessages = std::unordered_map<std::string, Judgement, TextHash, std::equal_to<>>;

// By the last that the message log at `path` says of each record. Raises what readMessageLog
// raises.
[[nodiscard]] JudgedMessages judgeKeptMessages(const Files& files, std::string_view path,
                                               const MessagePatterns& patterns);

} // namespace tarnwick
