#pragma once

#include "platform/files.hpp"
#include "runner/messages.hpp"
#include "runner/run_totals.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
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
        std::uint64_t leftOut = 0; // so many more there were
        // MessagePatterns::mark of those which saw all that was said, and failed nothing; 0: none.
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

// What is wrong with a log: those lines are dropped.
struct MessageLogFaults {
    std::size_t damaged = 0; // lines in the middle that are not whole
    bool torn = false;       // the last line is not: its writing was cut short

    bool operator==(const MessageLogFaults&) const = default;
};

// Calls `use` with each whole line, in their order; never where there is no such file. Raises what
// Files::openForReading and InputFile::read raise, and 321 (with a description for people) where
// the file is no message log or one of a newer version.
MessageLogFaults readMessageLog(const Files& files, std::string_view path,
                                const std::function<void(MessageLogLine& line)>& use);

// Writes the log, a line at a time; each is with the system before the next is begun.
class MessageLog {
  public:
    // Before a run. Makes the log where there is none; where most of it is stale, or something of
    // it is damaged, it is first made anew, in one step, of the last line of each record and the
    // last keptTotals runs. Raises what readMessageLog and Files raise; the log is then as it was.
    MessageLog(Files& files, const std::string& path);

    // Raises 61, 57.
    void write(const MessageLogLine& line);

    // Of a run's end: on the medium. Raises 61, 57.
    void close();

  private:
    std::unique_ptr<OutputFile> file_;
};

} // namespace tarnwick
