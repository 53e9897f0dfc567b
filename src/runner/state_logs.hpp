#pragma once

#include "platform/process_lock.hpp"
#include "runner/run_log.hpp"
#include "runner/share.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarnwick {

// The logs of one state folder: that of the runs over all records, and those of shares. Each is
// written by its own runs alone and read by all (docs/run-log.md).

struct StateLog {
    std::string name; // without its folder
    std::optional<Share> share;

    bool operator==(const StateLog&) const = default;
};

// The one of all records first, then by count and number. None where there is no such folder.
// Raises what Files::listFiles raises.
[[nodiscard]] std::vector<StateLog> stateLogs(const Files& files, const std::string& stateFolder);

// Who is writing a log now.
struct LogWriter {
    enum class Kind : std::uint8_t {
        Nobody,
        AtWork,
        // It began on another machine and has not said that it ended. Locks may not reach there.
        PerhapsAtWork,
    };

    Kind kind = Kind::Nobody;
    std::string holder; // for people; empty where it is nobody

    bool operator==(const LogWriter&) const = default;
};

// `me` is who asks, as RunRequest::holder: for the name of this machine.
[[nodiscard]] LogWriter writerOf(const ProcessLocks& locks, const std::string& stateFolder,
                                 const std::optional<Share>& share, std::string_view me);

// What a lock file says without the sign of life below its first line.
[[nodiscard]] std::string holderIn(std::string_view lockFile);

// The machine that a holder is on: of "process 12 on HOST, since noon", HOST.
[[nodiscard]] std::string machineOf(std::string_view holder);

// What the logs of other runs say of one record.
struct OtherKnown {
    std::uint32_t log = 0; // of OtherLogs::logs
    KnownRecord known;
};

struct OtherLogs {
    struct Log {
        std::string name;
        std::map<std::uint32_t, RunConditions> runs;
        std::size_t damaged = 0;
        bool torn = false; // its last line is not whole, though nobody can be writing it now
    };
    std::vector<Log> logs;
    std::unordered_multimap<std::string, OtherKnown, TextHash, std::equal_to<>> records;
};

// All that is known of earlier runs.
struct StateHistory {
    std::string ownName;
    RunHistory own; // of the log that a run of this share would write
    OtherLogs others;
    std::set<SettledLine> settled; // of all logs, with `run` 0

    // Whether a later run has settled what the `begun` line of that run in that log says.
    [[nodiscard]] bool isSettled(const std::string& record, const std::string& log,
                                 std::uint32_t run) const;
};

// Reads all logs; of the others only the lines about records that are in `share`. `tell` is called
// with each line that is read so, and with the name of its log. Raises what readRunLog raises.
using TellLine = std::function<void(const std::string& log, const LogLine& line)>;
[[nodiscard]] StateHistory readStateHistory(const Files& files, const ProcessLocks& locks,
                                            const std::string& stateFolder,
                                            const std::optional<Share>& share, std::string_view me,
                                            const TellLine& tell = {});

} // namespace tarnwick
