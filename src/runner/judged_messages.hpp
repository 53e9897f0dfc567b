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
    Fails,       // one of its messages is among those that fail a record
    PartlyKnown, // none of those that are kept is; but not all are kept in full, and no run with
                 // these patterns saw them all
    Unknown,     // its messages are not known
};

// By the messages that are kept. Where not all are, but a run with these patterns has seen all of
// them and failed the record for none, that counts.
[[nodiscard]] Judgement judgementOf(const MessagesLine& line, const MessagePatterns& patterns);

// Of each record whose messages are kept.
using JudgedMessages = std::unordered_map<std::string, Judgement, TextHash, std::equal_to<>>;

// By the last that the message log at `path` says of each record. Raises what readMessageLog
// raises.
[[nodiscard]] JudgedMessages judgeKeptMessages(const Files& files, std::string_view path,
                                               const MessagePatterns& patterns);

} // namespace tarnwick
