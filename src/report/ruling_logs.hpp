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

// The logs of a state folder. Several may tell of the same record: this says which one of them
// counts for it.
class RulingLogs {
  public:
    // As readStateHistory.
    RulingLogs(const Files& files, const ProcessLocks& locks, const std::string& stateFolder,
               const std::optional<Share>& share, std::string_view me);

    // For a plan that does not ask whether tools and files have changed since: every log's records
    // count as made under the conditions of its last run.
    [[nodiscard]] const StateHistory& history() const noexcept { return history_; }

    // The log that counts for a record, by its place in logs(), and what it knows of the record.
    // `known` is null where no log names the record; the log is then the first.
    struct Ruling {
        std::uint32_t log = 0;
        const KnownRecord* known = nullptr;
    };
    // `upToDate` is what the plan says of the record, and `stamp` the one that it has now. What
    // counts first is a log that made it as it is now, where it is up to date; then one that tells
    // of a failure; and among equals the one that the last run wrote.
    [[nodiscard]] Ruling rulingOf(const std::string& record, bool upToDate,
                                  const Stamp& stamp) const;

    // Whether it was made by the last run, or by the last runs of all shares together.
    [[nodiscard]] bool isOfLastRun(const Ruling& ruling) const;

    [[nodiscard]] const std::vector<ToldLog>& logs() const noexcept { return logs_; }
    [[nodiscard]] std::vector<MessageSource> messageSources(const std::string& stateFolder) const;

    // When the last run began, of shares the first of them; empty where there was none.
    [[nodiscard]] const std::string& lastBegun() const noexcept { return lastBegun_; }

    // Frees the memory for all that rulings refer to: none may be asked for or used after this.
    void letGo();

  private:
    struct Begun {
        std::string when;
        std::uint32_t run = 0;
        std::string log;
    };

    void findLastRun(std::vector<Begun> begun);
    void equalConditions();

    StateHistory history_;
    std::vector<ToldLog> logs_; // the own one, and others as history_ has them
    std::string lastBegun_;
    std::set<std::uint32_t> lastLogs_; // in which the last run is
};

} // namespace tarnwick
