#pragma once

#include "platform/file_stamps.hpp"
#include "processing/commands/tool_steps.hpp"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tarnwick {

// The lines of a run log (docs/run-log.md). A line is fields between tabs, of which the last is a
// checksum of those before it; a text in a field has no tab and no line end (they are escaped).

inline constexpr std::string_view logTitle = "tarnwick-run log ";
inline constexpr int logVersion = 1;

// What holds for all records of one run. Of a file that is not used or not there, no stamp.
struct RunConditions {
    std::uint64_t commands = 0; // Products::commandsHash
    std::optional<Stamp> mp;
    std::optional<Stamp> cns;
    std::optional<Stamp> configuration;
    std::optional<Stamp> aliases;

    bool operator==(const RunConditions&) const = default;
};

struct RunLine {
    std::uint32_t run = 0; // counted from 1
    std::string begun;     // date and time, UTC, for people
    RunConditions conditions;

    bool operator==(const RunLine&) const = default;
};

// A record is in work: what is known of it from before does not hold any longer.
struct BegunLine {
    std::uint32_t run = 0;
    std::string record;

    bool operator==(const BegunLine&) const = default;
};

// One call of a tool, as the log keeps it.
struct CallNote {
    Tool tool = Tool::MP;
    std::int64_t code = 0; // see ToolEnd
    double seconds = 0;

    bool operator==(const CallNote&) const = default;
};

struct RecordLine {
    std::uint32_t run = 0;
    std::string record;
    std::string why; // it failed; empty: it is made
    Stamp stamp;     // of the record
    std::vector<CallNote> calls;
    std::vector<Stamp> products; // in the order of Products::kinds; empty where it failed

    bool operator==(const RecordLine&) const = default;
};

// A run of another log was killed while it had this record in work, and its `begun` line stands
// there for ever. A run of this log has made the record since, so that line no longer counts.
struct SettledLine {
    std::uint32_t run = 0;
    std::string record;
    std::string log;           // its file's name
    std::uint32_t begunIn = 0; // the run of that log

    auto operator<=>(const SettledLine&) const = default;
};

using LogLine = std::variant<RunLine, BegunLine, RecordLine, SettledLine>;

// With its "\n".
[[nodiscard]] std::string logLineText(const LogLine& line);

// `text` without its "\n"; nothing where it is no such line, or not whole.
[[nodiscard]] std::optional<LogLine> parseLogLine(std::string_view text);

// The record that such a line is about, whole or not; nothing where it is about none. Quicker than
// to read all of the line.
[[nodiscard]] std::optional<std::string> recordOfLogLine(std::string_view text);

} // namespace tarnwick
