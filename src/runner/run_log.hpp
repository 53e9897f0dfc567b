#pragma once

#include "platform/files.hpp"
#include "runner/checked_log.hpp"
#include "runner/log_line.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarnwick {

// What the log says of one record.
struct KnownRecord {
    enum class State : std::uint8_t { Begun, Made, Failed };

    State state = State::Begun;
    std::uint32_t run = 0;
    std::uint32_t line = 0;      // of the log, the last that names it
    Stamp stamp;                 // of the record; where it is not only begun
    std::vector<Stamp> products; // where it is made
};

struct TextHash {
    using is_transparent = void;
    [[nodiscard]] std::size_t operator()(std::string_view text) const noexcept {
        return std::hash<std::string_view>()(text);
    }
};

// What the runs so far have left in their log.
struct RunHistory {
    std::unordered_map<std::string, KnownRecord, TextHash, std::equal_to<>> records;
    std::map<std::uint32_t, RunConditions> runs;
    std::vector<SettledLine> settled;
    std::uint32_t lines = 0; // that are whole
    std::size_t damaged = 0; // lines in the middle that are not
    bool torn = false;       // the last line is not whole: its writing was cut short

    [[nodiscard]] std::uint32_t lastRun() const noexcept {
        return runs.empty() ? 0 : runs.rbegin()->first;
    }
};

// Adds what the next line says.
void take(LogLine line, RunHistory& history);

// Reads a log; an empty one where there is none. `tell` hears of each line. Where `wanted` is
// given, lines about other records are passed over. Raises what readCheckedLog raises.
using WantedRecords = std::function<bool(std::string_view record)>;
[[nodiscard]] RunHistory readRunLog(const Files& files, std::string_view path,
                                    const std::function<void(const LogLine& line)>& tell = {},
                                    const WantedRecords& wanted = {});

// Writes the log, a line at a time, as LogEnd does.
class RunLog {
  public:
    // Makes the log where there is none. Where most of it is stale, or something of it is damaged,
    // it is first made anew of the lines that `history`, which was read from it, still needs.
    // Raises what makeLogAnew and Files raise; the log is then as it was.
    RunLog(Files& files, const std::string& path, const RunHistory& history);

    // Raises 61, 57.
    void write(const LogLine& line);

    // At a run's end: returns when all is on the medium. Raises 61, 57.
    void close();

  private:
    LogEnd end_;
};

} // namespace tarnwick
