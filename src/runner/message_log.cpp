#include "runner/message_log.hpp"

#include "common/line_reader.hpp"
#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "platform/run_time_error.hpp"
#include "runner/hash.hpp"
#include "runner/log_fields.hpp"
#include "runner/number_text.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace tarnwick {
namespace {

// A log of less is never made anew: there is nothing to gain.
constexpr std::size_t fewLines = 1000;

std::string titleLine() {
    return std::string(messageLogTitle) + std::to_string(messageLogVersion);
}

constexpr std::string_view leftOutName = "left-out=";
constexpr std::string_view judgedName = "judged=";

struct FieldsOf {
    std::string operator()(const MessagesLine& line) const {
        std::string fields = !line.known ? "unknown\t" : line.missing ? "partly\t" : "messages\t";
        fields.append(std::to_string(line.run)).append("\t").append(asLogField(line.record));
        if (line.known && line.missing) {
            const auto [leftOut, judgedBy] = *line.missing;
            fields.append("\t").append(leftOutName).append(std::to_string(leftOut));
            fields.append("\t").append(judgedName);
            fields.append(judgedBy == 0 ? "-" : hexadecimal(judgedBy));
        }
        for (const auto& [number, text] : line.messages) {
            fields.append("\t").append(std::to_string(number)).append(" ").append(asLogField(text));
        }
        return fields;
    }
    std::string operator()(const TotalsLine& line) const {
        const RunTotals& totals = line.totals;
        return "ended\t" + std::to_string(line.run) + "\t" + asLogField(totals.begun) + "\t" +
               numberText(totals.seconds, 3) + "\tmade=" + std::to_string(totals.made) +
               "\tup-to-date=" + std::to_string(totals.upToDate) +
               "\tfailed=" + std::to_string(totals.failed) +
               "\tnot-run=" + std::to_string(totals.notRun) +
               "\twith-findings=" + std::to_string(totals.recordsWithFindings) +
               "\tmessages=" + std::to_string(totals.messages);
    }
};

MessagesLine::Missing missingOf(LogFields& fields) {
    MessagesLine::Missing missing;
    missing.leftOut = fields.number<std::uint64_t>(fields.after(leftOutName));
    const auto judged = fields.after(judgedName);
    missing.judgedBy = judged == "-" ? 0 : fields.hexadecimalNumber(judged);
    return missing;
}

MessagesLine messagesLine(LogFields& fields, std::string_view kind) {
    MessagesLine line;
    line.known = kind != "unknown";
    line.run = fields.number<std::uint32_t>();
    line.record = fields.text();
    if (kind == "partly") {
        line.missing = missingOf(fields);
    }
    while (line.known && fields.hasMore()) {
        const auto field = fields.field();
        const auto blank = field.find(' ');
        fields.require(blank != std::string_view::npos);
        if (fields.isWhole()) {
            line.messages.push_back({.line = fields.number<std::uint32_t>(field.substr(0, blank)),
                                     .text = fields.textOf(field.substr(blank + 1))});
        }
    }
    return line;
}

TotalsLine totalsLine(LogFields& fields) {
    TotalsLine line;
    line.run = fields.number<std::uint32_t>();
    line.totals.begun = fields.text();
    line.totals.seconds = fields.number<double>();
    const auto count = [&](std::string_view name) {
        return fields.number<std::size_t>(fields.after(name));
    };
    line.totals.made = count("made=");
    line.totals.upToDate = count("up-to-date=");
    line.totals.failed = count("failed=");
    line.totals.notRun = count("not-run=");
    line.totals.recordsWithFindings = count("with-findings=");
    line.totals.messages = fields.number<std::uint64_t>(fields.after("messages="));
    return line;
}

MessageLogFaults
readLines(const Files& files, std::string_view path,
          const std::function<void(std::string_view text, MessageLogLine& line)>& use) {
    MessageLogFaults faults;
    if (!FileExists(files, path)) {
        return faults;
    }
    const auto file = files.openForReading(path);
    LineReader lines(*file, LineEnds::Any);
    const std::string title(lines.next().value_or(""));
    faults.torn =
        !checkLogTitle(title, messageLogTitle, messageLogVersion, "The message log", path);
    while (const auto text = lines.next()) {
        if (text->empty()) {
            continue;
        }
        auto line = parseMessageLogLine(*text);
        // What was taken for a torn end was none, when something follows it.
        faults.damaged += faults.torn ? 1 : 0;
        faults.torn = !line;
        if (line) {
            use(*text, *line);
        }
    }
    return faults;
}

// Which lines the next runs need.
class NeededLines {
  public:
    void add(const MessageLogLine& line) {
        if (const auto* const messages = std::get_if<MessagesLine>(&line)) {
            lastOf_[messages->record] = lines_;
        } else {
            totals_.push_back(lines_);
        }
        ++lines_;
    }

    [[nodiscard]] bool isLittleOfAll() const {
        return lines_ > fewLines &&
               lines_ > 2 * (lastOf_.size() + std::min(totals_.size(), keptTotals));
    }

    [[nodiscard]] bool needs(const MessageLogLine& line, std::size_t place) const {
        if (const auto* const messages = std::get_if<MessagesLine>(&line)) {
            const auto last = lastOf_.find(messages->record);
            return last != lastOf_.end() && last->second == place;
        }
        return totals_.size() <= keptTotals || place >= totals_[totals_.size() - keptTotals];
    }

  private:
    std::unordered_map<std::string, std::size_t> lastOf_;
    std::vector<std::size_t> totals_;
    std::size_t lines_ = 0;
};

std::string besideLog(const std::string& path) {
    return path + ".new";
}

// Beside the log, and then in its place: it may be too large to be held.
void makeAnew(Files& files, const std::string& path, const NeededLines& needed) {
    const std::string beside = besideLog(path);
    auto file = createAnew(files, beside);
    try {
        file->write(titleLine() + "\n");
        std::size_t place = 0;
        readLines(files, path, [&](std::string_view text, const MessageLogLine& line) {
            if (needed.needs(line, place++)) {
                file->write(text);
                file->write("\n");
            }
        });
        file->flush();
        file->close();
        files.moveOver(beside, path);
    } catch (const RunTimeError&) {
        file.reset();
        removeQuietly(files, beside);
        throw;
    }
}

} // namespace

std::string messageLogLineText(const MessageLogLine& line) {
    return logLineOf(std::visit(FieldsOf(), line));
}

std::optional<MessageLogLine> parseMessageLogLine(std::string_view text) {
    const auto whole = fieldsOfLogLine(text);
    if (!whole) {
        return std::nullopt;
    }
    LogFields fields(*whole);
    const auto kind = fields.field();
    std::optional<MessageLogLine> line;
    if (kind == "messages" || kind == "partly" || kind == "unknown") {
        line = messagesLine(fields, kind);
    } else if (kind == "ended") {
        line = totalsLine(fields);
    }
    return fields.isWhole() && !fields.hasMore() ? line : std::nullopt;
}

std::string messageLogOf(std::string_view runLog) {
    constexpr std::string_view plain = "run.log";
    constexpr std::string_view extension = ".log";
    const auto kept = runLog.size() - (runLog.ends_with(plain) ? plain : extension).size();
    return std::string(runLog.substr(0, kept)) +
           (runLog.ends_with(plain) ? "messages.log" : ".messages.log");
}

MessageLogFaults readMessageLog(const Files& files, std::string_view path,
                                const std::function<void(MessageLogLine& line)>& use) {
    return readLines(files, path,
                     [&](std::string_view /*text*/, MessageLogLine& line) { use(line); });
}

MessageLog::MessageLog(Files& files, const std::string& path) {
    removeQuietly(files, besideLog(path)); // of a run that was killed
    if (!FileExists(files, path)) {
        writeInOneStep(files, path, titleLine() + "\n");
    } else {
        NeededLines needed;
        const auto [damaged, torn] =
            readMessageLog(files, path, [&](const MessageLogLine& line) { needed.add(line); });
        if (torn || damaged > 0 || needed.isLittleOfAll()) {
            makeAnew(files, path, needed);
        }
    }
    file_ = files.append(path);
    file_->write("\n"); // also ends a line that was cut short just before its own end
    file_->drain();
}

void MessageLog::write(const MessageLogLine& line) {
    file_->write(messageLogLineText(line));
    file_->drain();
}

void MessageLog::close() {
    file_->flush();
    file_->close();
}

} // namespace tarnwick
