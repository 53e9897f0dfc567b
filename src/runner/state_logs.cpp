#include "runner/state_logs.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "platform/run_time_error.hpp"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tarnwick {
namespace {

// The last line about a record is the one that counts, in each log.
void add(OtherLogs& others, std::uint32_t log, std::string record, KnownRecord known) {
    const auto [first, last] = others.records.equal_range(record);
    const auto earlier =
        std::find_if(first, last, [&](const auto& entry) { return entry.second.log == log; });
    if (earlier != last) {
        earlier->second.known = std::move(known);
    } else {
        others.records.emplace(std::move(record),
                               OtherKnown{.log = log, .known = std::move(known)});
    }
}

// A log may be made anew while it is read, and some file systems then take the old one away from
// its reader: so it is read a second time before that is told.
RunHistory readOther(const Files& files, const std::string& path,
                     const std::function<void(const LogLine& line)>& tell,
                     const WantedRecords& wanted) {
    try {
        return readRunLog(files, path, tell, wanted);
    } catch (const RunTimeError& error) {
        if (error.is(ErrorNumber::InvalidFileFormat)) {
            throw;
        }
    }
    return readRunLog(files, path, tell, wanted);
}

class HistoryReader {
  public:
    HistoryReader(const Files& files, const ProcessLocks& locks, const std::string& stateFolder,
                  std::string_view me, const TellLine& tell)
        : files_(files), locks_(locks), stateFolder_(stateFolder), me_(me), tell_(tell) {}

    StateHistory read(const std::optional<Share>& share) {
        history_.ownName = logNameOf(share);
        history_.own =
            readRunLog(files_, joinPath(stateFolder_, history_.ownName), told(history_.ownName));
        settle(history_.own.settled);
        const WantedRecords wanted =
            share ? [share](std::string_view record) { return isIn(*share, record); }
                  : WantedRecords();
        for (const StateLog& log : stateLogs(files_, stateFolder_)) {
            // Another share of as many has no record of this one.
            const bool mayTell = !share || !log.share || log.share->count != share->count;
            if (mayTell && log.name != history_.ownName) {
                readLog(log, wanted);
            }
        }
        return std::move(history_);
    }

  private:
    void readLog(const StateLog& log, const WantedRecords& wanted) {
        RunHistory read =
            readOther(files_, joinPath(stateFolder_, log.name), told(log.name), wanted);
        settle(read.settled);
        const auto place = static_cast<std::uint32_t>(history_.others.logs.size());
        history_.others.logs.push_back({.name = log.name,
                                        .runs = std::move(read.runs),
                                        .damaged = read.damaged,
                                        .torn = read.torn && isEnded(log)});
        while (!read.records.empty()) {
            auto record = read.records.extract(read.records.begin());
            add(history_.others, place, std::move(record.key()), std::move(record.mapped()));
        }
    }

    [[nodiscard]] std::function<void(const LogLine& line)> told(const std::string& log) const {
        if (!tell_) {
            return {};
        }
        return [this, log](const LogLine& line) { tell_(log, line); };
    }

    [[nodiscard]] bool isEnded(const StateLog& log) const {
        return writerOf(locks_, stateFolder_, log.share, me_).kind == LogWriter::Kind::Nobody;
    }

    void settle(std::vector<SettledLine>& lines) {
        for (SettledLine& line : lines) {
            line.run = 0;
            history_.settled.insert(std::move(line));
        }
        lines.clear();
    }

    const Files& files_;
    const ProcessLocks& locks_;
    const std::string& stateFolder_;
    std::string_view me_;
    const TellLine& tell_;
    StateHistory history_;
};

} // namespace

std::vector<StateLog> stateLogs(const Files& files, const std::string& stateFolder) {
    std::vector<StateLog> logs;
    if (!FolderExists(files, stateFolder)) {
        return logs;
    }
    for (const std::string& name : files.listFiles(stateFolder, "*.log").names) {
        if (const auto owner = ownerOfLog(name)) {
            logs.push_back({.name = name, .share = owner->share});
        }
    }
    std::ranges::sort(logs, {}, [](const StateLog& log) {
        return log.share ? std::tuple(log.share->count, log.share->number) : std::tuple(0U, 0U);
    });
    return logs;
}

std::string holderIn(std::string_view lockFile) {
    return std::string(lockFile.substr(0, lockFile.find('\n')));
}

std::string machineOf(std::string_view holder) {
    constexpr std::string_view before = " on ";
    const auto at = holder.find(before);
    if (at == std::string_view::npos) {
        return {};
    }
    holder.remove_prefix(at + before.size());
    return std::string(holder.substr(0, holder.find_first_of(", \n")));
}

LogWriter writerOf(const ProcessLocks& locks, const std::string& stateFolder,
                   const std::optional<Share>& share, std::string_view me) {
    const std::string path = joinPath(stateFolder, lockNameOf(share));
    const bool isHeld = locks.isHeld(path);
    std::string holder = holderIn(locks.holderOf(path));
    if (isHeld) {
        return {.kind = LogWriter::Kind::AtWork, .holder = std::move(holder)};
    }
    if (holder.empty() || machineOf(holder) == machineOf(me)) {
        return {};
    }
    return {.kind = LogWriter::Kind::PerhapsAtWork, .holder = std::move(holder)};
}

bool StateHistory::isSettled(const std::string& record, const std::string& log,
                             std::uint32_t run) const {
    return settled.contains({.run = 0, .record = record, .log = log, .begunIn = run});
}

StateHistory readStateHistory(const Files& files, const ProcessLocks& locks,
                              const std::string& stateFolder, const std::optional<Share>& share,
                              std::string_view me, const TellLine& tell) {
    return HistoryReader(files, locks, stateFolder, me, tell).read(share);
}

} // namespace tarnwick
