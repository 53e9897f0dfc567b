#include "report/ruling_logs.hpp"

#include "common/text.hpp"
#include "report/joined_runs.hpp"
#include "runner/message_log.hpp"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tarnwick {
namespace {

std::uint32_t sharesOf(const ToldLog& log) {
    return log.share ? log.share->count : 0;
}

// All that were not made under the conditions of the last run were made under others.
void equalConditions(std::map<std::uint32_t, RunConditions>& runs) {
    if (runs.empty()) {
        return;
    }
    const RunConditions last = runs.rbegin()->second;
    for (auto& [run, conditions] : runs) {
        const bool isAsLast = conditions == last;
        conditions = {};
        conditions.commands = isAsLast ? 0 : 1;
    }
}

} // namespace

RulingLogs::RulingLogs(const Files& files, const ProcessLocks& locks,
                       const std::string& stateFolder, const std::optional<Share>& share,
                       std::string_view me) {
    std::map<std::string, ToldLog> told;
    std::vector<Begun> begun;
    const auto hear = [&](const std::string& log, const LogLine& line) {
        ToldLog& here = told[log];
        if (const auto* const run = std::get_if<RunLine>(&line)) {
            here.lastRun = std::max(here.lastRun, run->run);
            begun.push_back({.when = run->begun, .run = run->run, .log = log});
        } else if (const auto* const record = std::get_if<RecordLine>(&line)) {
            here.notes[record->record] = {.why = record->why, .calls = record->calls};
        }
    };
    history_ = readStateHistory(files, locks, stateFolder, share, me, hear);
    const auto add = [&](const std::string& name) {
        ToldLog& log = told[name];
        log.name = name;
        if (const auto owner = ownerOfLog(name)) {
            log.share = owner->share;
        }
        logs_.push_back(std::move(log));
    };
    add(history_.ownName);
    for (const OtherLogs::Log& log : history_.others.logs) {
        add(log.name);
    }
    findLastRun(std::move(begun));
    equalConditions();
}

// Clocks of several machines are compared here alone: for what people are told of the order of
// runs.
void RulingLogs::findLastRun(std::vector<Begun> begun) {
    if (logs_.size() > 1) { // one log has them in their order
        std::ranges::stable_sort(begun, {}, [](const Begun& run) {
            return std::tuple(std::string_view(run.when), run.run);
        });
    }
    std::unordered_map<std::string_view, std::uint32_t> places;
    for (std::uint32_t log = 0; log < logs_.size(); ++log) {
        places.emplace(logs_[log].name, log);
    }
    JoinedRun joined;
    for (const Begun& run : begun) {
        const std::uint32_t log = places.at(run.log);
        if (joined.begins(log, sharesOf(logs_[log]), run.when)) {
            lastBegun_ = run.when;
        }
    }
    lastLogs_ = joined.logs();
}

void RulingLogs::equalConditions() {
    tarnwick::equalConditions(history_.own.runs);
    for (OtherLogs::Log& log : history_.others.logs) {
        tarnwick::equalConditions(log.runs);
    }
}

RulingLogs::Ruling RulingLogs::rulingOf(const std::string& record, bool upToDate,
                                        const Stamp& stamp) const {
    using enum KnownRecord::State;
    const auto rank = [&](const Ruling& ruling) {
        const KnownRecord& known = *ruling.known;
        const bool isTrue = upToDate && known.state == Made && known.stamp == stamp;
        const int told = known.state == Failed ? 2 : known.state == Made ? 1 : 0;
        return std::tuple(isTrue, isTrue ? 0 : told, isOfLastRun(ruling), ruling.log);
    };
    Ruling best;
    const auto consider = [&](std::uint32_t log, const KnownRecord& known) {
        const Ruling ruling{.log = log, .known = &known};
        if (best.known == nullptr || rank(best) < rank(ruling)) {
            best = ruling;
        }
    };
    const auto own = history_.own.records.find(record);
    if (own != history_.own.records.end()) {
        consider(0, own->second);
    }
    const auto [first, last] = history_.others.records.equal_range(record);
    for (auto entry = first; entry != last; ++entry) {
        consider(entry->second.log + 1, entry->second.known);
    }
    return best;
}

bool RulingLogs::isOfLastRun(const Ruling& ruling) const {
    return lastLogs_.contains(ruling.log) && ruling.known->run == logs_[ruling.log].lastRun;
}

std::vector<MessageSource> RulingLogs::messageSources(const std::string& stateFolder) const {
    std::vector<MessageSource> sources;
    for (std::uint32_t place = 0; place < logs_.size(); ++place) {
        const ToldLog& log = logs_[place];
        sources.push_back({.path = messageLogOf(joinPath(stateFolder, log.name)),
                           .lastRun = lastLogs_.contains(place) ? log.lastRun : 0,
                           .shares = sharesOf(log)});
    }
    return sources;
}

void RulingLogs::letGo() {
    history_ = {};
    for (ToldLog& log : logs_) {
        log.notes = {};
    }
}

} // namespace tarnwick
