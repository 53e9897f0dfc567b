#pragma once

#include "platform/file_stamps.hpp"
#include "processing/commands/tool_steps.hpp"
#include "report/kept_findings.hpp"
#include "runner/log_line.hpp"
#include "runner/share.hpp"
#include "runner/state_logs.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarnwick {

// What a run log says of its runs and records beyond what a plan needs.
struct ToldLog {
    std::string name;
    std::optional<Share> share;
    std::uint32_t lastRun = 0;
    struct Note {
        std::string why;
        std::vector<CallNote> calls;
    };
    std::unordered_map<std::string, Note> notes; // of each record's last end
};

// The logs of a state folder, and which of them is asked of which record: several may have made it,
// or tried to.
class RulingLogs {
  public:
    // As readStateHistory.
    RulingLogs(const Files& files, const ProcessLocks& locks, const std::string& stateFolder,
               const std::optional<Share>& share, std::string_view me);

    // For a plan in which every log's records count as made under the same conditions as its last
    // run: whether tools and all else still are as they were then is not asked.
    [[nodiscard]] const StateHistory& history() const noexcept { return history_; }

    // What counts of a record: its place in logs(), and what that log knows. `known` is null where
    // no log names the record; the log is then the first.
    struct Ruling {
        std::uint32_t log = 0;
        const KnownRecord* known = nullptr;
    };
    // `upToDate` is what the plan says of it, with the stamp that it has: a log which says so, too,
    // counts. Else one that tells of a failure does, and among equals the one that was written by
    // the last run.
    [[nodiscard]] Ruling rulingOf(const std::string& record, bool upToDate,
                                  const Stamp& stamp) const;

    // Whether it was made by the last run, or by the last runs of all shares together.
    [[nodiscard]] bool isOfLastRun(const Ruling& ruling) const;

    [[nodiscard]] const std::vector<ToldLog>& logs() const noexcept { return logs_; }
    [[nodiscard]] std::vector<MessageSource> messageSources(const std::string& stateFolder) const;

    // When the last run began, of shares the first of them; empty where there was none.
    [[nodiscard]] const std::string& lastBegun() const noexcept { return lastBegun_; }

    // Of all records, the rulings are no longer needed, nor what they refer to.
    void letGo();

  private:
    struct Begun {
        std::string when;
        std::uint32_t run = 0;
        std::string log;
    };

    void hear(const std::string& log, const LogLine& line);
    void findLastRun();
    void equalConditions();

    StateHistory history_;
    std::vector<ToldLog> logs_; // the own one, and others as history_ has them
    std::map<std::string, ToldLog> told_;
    std::vector<Begun> begun_;
    std::string lastBegun_;
    std::set<std::uint32_t> lastLogs_; // in which the last run is
};

} // namespace tarnwick
