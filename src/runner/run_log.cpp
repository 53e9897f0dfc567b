#include "runner/run_log.hpp"

#include "common/line_reader.hpp"
#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "platform/run_time_error.hpp"

#include <charconv>
#include <set>
#include <utility>

namespace tarnwick {
namespace {

// A log of less is never made anew: there is nothing to gain.
constexpr std::size_t fewLines = 1000;

std::string titleLine() {
    return std::string(logTitle) + std::to_string(logVersion);
}

[[noreturn]] void refuse(std::string_view path, std::string_view why) {
    throw RunTimeError(ErrorNumber::InvalidFileFormat,
                       "The run log " + quoted(path) + " " + std::string(why));
}

// A title that was cut short while the first log was made is as good as none.
void checkTitle(std::string_view title, std::string_view path) {
    if (titleLine().starts_with(title)) {
        return;
    }
    if (!title.starts_with(logTitle)) {
        refuse(path, "is no log of tarnwick-run");
    }
    const auto digits = title.substr(logTitle.size());
    int version = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), version);
    if (error == std::errc() && end == digits.data() + digits.size() && version > logVersion) {
        refuse(path, "was written by a newer version of tarnwick-run");
    }
    refuse(path, "is no log of tarnwick-run");
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
    const std::size_t useful = history.records.size() + history.runs.size();
    return history.torn || history.damaged > 0 ||
           (history.lines > fewLines && history.lines > 2 * useful);
}

} // namespace

void take(LogLine line, RunHistory& history) {
    std::visit(Taker{history}, line);
    ++history.lines;
}

LogEnd readLogLines(const Files& files, std::string_view path, const WantedRecords& wanted,
                    const std::function<void(LogLine line)>& use) {
    const auto file = files.openForReading(path);
    LineReader lines(*file, LineEnds::Any);
    const std::string title(lines.next().value_or(""));
    checkTitle(title, path);
    LogEnd end{.torn = title != titleLine()};
    while (const auto text = lines.next()) {
        if (text->empty()) { // it stands between two runs
            continue;
        }
        // What was taken for a torn end was none, when something follows it.
        end.damaged += end.torn ? 1 : 0;
        end.torn = false;
        if (wanted) {
            const auto record = recordOfLogLine(*text);
            if (record && !wanted(*record)) {
                continue;
            }
        }
        auto line = parseLogLine(*text);
        end.torn = !line;
        if (line) {
            use(*std::move(line));
        }
    }
    return end;
}

RunHistory readRunLog(const Files& files, std::string_view path) {
    return readRunLog(files, path, {});
}

RunHistory readRunLog(const Files& files, std::string_view path, const WantedRecords& wanted) {
    RunHistory history;
    if (FileExists(files, path)) {
        const auto end = readLogLines(files, path, wanted,
                                      [&](LogLine line) { take(std::move(line), history); });
        history.torn = end.torn;
        history.damaged = end.damaged;
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
