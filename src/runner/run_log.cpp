#include "runner/run_log.hpp"

#include "common/line_reader.hpp"
#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "runner/log_fields.hpp"

#include <set>
#include <utility>

namespace tarnwick {
namespace {

// A log of less is never made anew: there is nothing to gain.
constexpr std::size_t fewLines = 1000;

std::string titleLine() {
    return std::string(logTitle) + std::to_string(logVersion);
}

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

// Calls `use` with the text of each line, and what it says: nothing where it is not whole.
template <typename Use>
void readLines(LineReader& lines, const Use& use) {
    while (const auto text = lines.next()) {
        if (!text->empty()) { // a blank line stands between two runs
            use(*text, parseLogLine(*text));
        }
    }
}

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

std::string neededLines(const Files& files, std::string_view path, const RunHistory& history) {
    std::string log = titleLine() + "\n";
    const auto file = files.openForReading(path);
    LineReader lines(*file, LineEnds::Any);
    static_cast<void>(lines.next());
    IsNeeded isNeeded{.history = history, .runs = usedRuns(history), .line = 0};
    readLines(lines, [&](std::string_view text, const std::optional<LogLine>& line) {
        if (line) {
            if (std::visit(isNeeded, *line)) {
                log.append(text).append("\n");
            }
            ++isNeeded.line;
        }
    });
    return log;
}

// Another runner may be reading it, and on Windows keeps its place by that. The next run is soon
// enough.
void makeAnew(Files& files, std::string_view path, const RunHistory& history) {
    try {
        writeInOneStep(files, path, neededLines(files, path, history));
    } catch (const RunTimeError& error) {
        if (!error.is(ErrorNumber::PermissionDenied)) {
            throw;
        }
    }
}

bool isWorthMakingAnew(const RunHistory& history) {
    if (history.torn || history.damaged > 0) {
        return true;
    }
    return history.lines > fewLines &&
           history.lines > 2 * (history.records.size() + usedRuns(history).size());
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
    if (!FileExists(files, path)) {
        return history;
    }
    const auto file = files.openForReading(path);
    LineReader lines(*file, LineEnds::Any);
    const std::string title(lines.next().value_or(""));
    history.torn = !checkLogTitle(title, logTitle, logVersion, "The run log", path);
    while (const auto text = lines.next()) {
        if (text->empty()) { // it stands between two runs
            continue;
        }
        // What was taken for a torn end was none, when something follows it.
        history.damaged += history.torn ? 1 : 0;
        history.torn = false;
        const auto record = wanted ? recordOfLogLine(*text) : std::nullopt;
        if (record && !wanted(*record)) {
            continue;
        }
        auto line = parseLogLine(*text);
        history.torn = !line;
        if (line) {
            if (tell) {
                tell(*line);
            }
            take(*std::move(line), history);
        }
    }
    return history;
}

RunLog::RunLog(Files& files, std::string_view path, const RunHistory& history) {
    if (!FileExists(files, path)) {
        writeInOneStep(files, path, titleLine() + "\n");
    } else if (isWorthMakingAnew(history)) {
        makeAnew(files, path, history);
    }
    file_ = files.append(path);
    file_->write("\n"); // also ends a line that was cut short just before its own end
    file_->drain();
}

void RunLog::write(const LogLine& line) {
    file_->write(logLineText(line));
    file_->drain();
}

void RunLog::close() {
    file_->flush();
    file_->close();
}

} // namespace tarnwick
