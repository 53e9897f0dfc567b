#pragma once

#include "platform/files.hpp"
#include "runner/checked_log.hpp"
#include "runner/messages.hpp"
#include "runner/run_totals.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tarnwick {

// The messages of the tools, kept beside a run log (docs/run-log.md): of every record those of its
// last run and, until the next run begins, those before; and what each run came to.

inline constexpr std::string_view messageLogTitle = "tarnwick-run messages ";
inline constexpr int messageLogVersion = 1;
inline constexpr std::size_t keptTotals = 50;

// What the tools said of a record in that run of the run log.
struct MessagesLine {
    std::uint32_t run = 0;
    std::string record{};
    bool known = true; // else they wrote no report, or it could not be read; no messages
    std::vector<ToolMessage> messages{};

    // Of messages that are not all kept, or not whole.
    struct Missing {
        std::uint64_t leftOut = 0; // RecordMessages::leftOut
        // MessagePatterns::mark of the patterns that saw all messages and failed the record for
        // none; 0 where there are no such patterns.
        std::uint64_t judgedBy = 0;

        bool operator==(const Missing&) const = default;
    };
    std::optional<Missing> missing{};

    bool operator==(const MessagesLine&) const = default;
};

// A run has ended.
struct TotalsLine {
    std::uint32_t run = 0;
    RunTotals totals;
    // Nothing was to do, so the findings were not counted: they are as the run before left them,
    // and `totals` has none of them.
    bool findingsAsBefore = false;

    bool operator==(const TotalsLine&) const = default;
};

using MessageLogLine = std::variant<MessagesLine, TotalsLine>;

// With its "\n".
[[nodiscard]] std::string messageLogLineText(const MessageLogLine& line);

// `text` without its "\n"; nothing where it is no such line, or not whole.
[[nodiscard]] std::optional<MessageLogLine> parseMessageLogLine(std::string_view text);

// That of a run log: messages.log beside run.log, share-1-of-8.messages.log beside
// share-1-of-8.log.
[[nodiscard]] std::string messageLogOf(std::string_view runLog);

// Calls `use` with each whole line, in their order. Raises what readCheckedLog raises.
LogFaults readMessageLog(const Files& files, std::string_view path,
                         const std::function<void(MessageLogLine& line)>& use);

// Adds the totals of a run with nothing to do, and reads nothing of the log but its title: it may
// be large. Makes it where there is none; a log of a newer version, or what is none, stays as it
// is, for it is no use to tell of it before the next run that has something to do. Raises what
// Files::openForReading, append and InputFile::read raise, and 61, 57.
void addTotals(Files& files, const std::string& path, const TotalsLine& line);

// Writes the log, a line at a time, as LogEnd does.
class MessageLog {
  public:
    // Before a run. Makes the log where there is none; where most of it is stale, or something of
    // it is damaged, it is first made anew of the last line of each record and the last keptTotals
    // runs. Raises what makeLogAnew and Files raise; the log is then as it was.
    MessageLog(Files& files, const std::string& path);

    // Raises 61, 57.
    void write(const MessageLogLine& line);

    // At a run's end: returns when all is on the medium. Raises 61, 57.
    void close();

  private:
    LogEnd end_;
};

} // namespace tarnwick
