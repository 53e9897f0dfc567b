#include "runner/run_log.hpp"

#include <set>
#include <utility>

namespace tarnwick {
namespace {

// A log of less is never made anew: there is nothing to gain.
constexpr std::size_t fewLines = 1000;

constexpr LogKind kind{.title = logTitle, .version = logVersion, .name = "The run log"};

struct Taker {
    RunHistory& history;

    void operator()(RunLine& line) const { history.runs[line.run] = line.conditions; }
    void operator()(BegunLine& line) const {
        history.records[std::move(line.record)] = {.state = KnownRecord::State::Begun,
                                                   .run = line.run,
                                                   .line = history.lines,
                                                   .stamp = {},
                                                   .products = {}};
    }
    void operator()(RecordLine& line) const {
        using enum KnownRecord::State;
        history.records[std::move(line.record)] = {.state = line.why.empty() ? Made : Failed,
                                                   .run = line.run,
                                                   .line = history.lines,
                                                   .stamp = line.stamp,
                                                   .products = std::move(line.products)};
    }
    void operator()(SettledLine& line) const { history.settled.push_back(std::move(line)); }
};

// Which runs the last lines of the records belong to.
std::set<std::uint32_t> usedRuns(const RunHistory& history) {
    std::set<std::uint32_t> used{history.lastRun()};
    for (const auto& [record, known] : history.records) {
        used.insert(known.run);
    }
    return used;
}

// Tells the lines that are still needed.
struct IsNeeded {
    const RunHistory& history;
    std::set<std::uint32_t> runs;
    std::uint32_t line;

    bool operator()(const RunLine& of) const { return runs.contains(of.run); }
    bool operator()(const BegunLine& of) const { return isLast(of.record); }
    bool operator()(const RecordLine& of) const { return isLast(of.record); }
    bool operator()(const SettledLine& /*of*/) const { return true; } // there are few
    [[nodiscard]] bool isLast(const std::string& record) const {
        const auto known = history.records.find(record);
        return known != history.records.end() && known->second.line == line;
    }
};

void makeAnew(Files& files, const std::string& path, const RunHistory& history) {
    IsNeeded isNeeded{.history = history, .runs = usedRuns(history), .line = 0};
    makeLogAnew(files, path, kind, [&](std::string_view text) {
        const auto line = parseLogLine(text);
        const bool needed = line && std::visit(isNeeded, *line);
        isNeeded.line += line ? 1U : 0U;
        return needed;
    });
}

bool isWorthMakingAnew(const RunHistory& history) {
    if (history.torn || history.damaged > 0) {
        return true;
    }
    return history.lines > fewLines &&
           history.lines > 2 * (history.records.size() + usedRuns(history).size());
}

LogEnd endOf(Files& files, const std::string& path, const RunHistory& history) {
    if (isWorthMakingAnew(history)) {
        makeAnew(files, path, history);
    }
    return {files, path, kind};
}

} // namespace

void take(LogLine line, RunHistory& history) {
    std::visit(Taker{history}, line);
    ++history.lines;
}

RunHistory readRunLog(const Files& files, std::string_view path,
                      const std::function<void(const LogLine& line)>& tell,
                      const WantedRecords& wanted) {
    RunHistory history;
    const LogFaults faults = readCheckedLog(files, path, kind, [&](std::string_view text) {
        const auto record = wanted ? recordOfLogLine(text) : std::nullopt;
        if (record && !wanted(*record)) {
            return true;
        }
        auto line = parseLogLine(text);
        if (!line) {
            return false;
        }
        if (tell) {
            tell(*line);
        }
        take(*std::move(line), history);
        return true;
    });
    history.damaged = faults.damaged;
    history.torn = faults.torn;
    return history;
}

RunLog::RunLog(Files& files, const std::string& path, const RunHistory& history)
    : end_(endOf(files, path, history)) {}

void RunLog::write(const LogLine& line) {
    end_.write(logLineText(line));
}

void RunLog::close() {
    end_.close();
}

} // namespace tarnwick
