#include "runner/message_log.hpp"

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

// In place of a number: it is that of the run before.
constexpr std::string_view notCounted = "-";

constexpr LogKind kind{
    .title = messageLogTitle, .version = messageLogVersion, .name = "The message log"};

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
        const auto counted = [&](std::uint64_t number) {
            return line.findingsAsBefore ? std::string(notCounted) : std::to_string(number);
        };
        return "ended\t" + std::to_string(line.run) + "\t" + asLogField(totals.begun) + "\t" +
               numberText(totals.seconds, 3) + "\tmade=" + std::to_string(totals.made) +
               "\tup-to-date=" + std::to_string(totals.upToDate) +
               "\tfailed=" + std::to_string(totals.failed) +
               "\tnot-run=" + std::to_string(totals.notRun) +
               "\twith-findings=" + counted(totals.recordsWithFindings) +
               "\tmessages=" + counted(totals.messages);
    }
};

MessagesLine::Missing missingOf(LogFields& fields) {
    MessagesLine::Missing missing;
    missing.leftOut = fields.number<std::uint64_t>(fields.after(leftOutName));
    const auto judged = fields.after(judgedName);
    missing.judgedBy = judged == "-" ? 0 : fields.hexadecimalNumber(judged);
    return missing;
}

MessagesLine messagesLine(LogFields& fields, std::string_view word) {
    MessagesLine line;
    line.known = word != "unknown";
    line.run = fields.number<std::uint32_t>();
    line.record = fields.text();
    if (word == "partly") {
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
    const auto withFindings = fields.after("with-findings=");
    const auto messages = fields.after("messages=");
    line.findingsAsBefore = withFindings == notCounted && messages == notCounted;
    if (!line.findingsAsBefore) {
        line.totals.recordsWithFindings = fields.number<std::size_t>(withFindings);
        line.totals.messages = fields.number<std::uint64_t>(messages);
    }
    return line;
}

// Which lines the next runs need.
class NeededLines {
  public:
    void add(const MessageLogLine& line) {
        if (const auto* const messages = std::get_if<MessagesLine>(&line)) {
            lastOf_[messages->record] = lines_;
        } else {
            const bool counted = !std::get<TotalsLine>(line).findingsAsBefore;
            totals_.push_back(
                {lines_, counted || totals_.empty() ? lines_ : totals_.back().counted});
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
        if (totals_.size() <= keptTotals) {
            return true;
        }
        const Totals& first = totals_[totals_.size() - keptTotals];
        return place >= first.place || place == first.counted;
    }

  private:
    struct Totals {
        std::size_t place;
        std::size_t counted; // the place of those whose findings are its own
    };

    std::unordered_map<std::string, std::size_t> lastOf_;
    std::vector<Totals> totals_;
    std::size_t lines_ = 0;
};

void makeAnew(Files& files, const std::string& path, const NeededLines& needed) {
    std::size_t place = 0;
    makeLogAnew(files, path, kind, [&](std::string_view text) {
        const auto line = parseMessageLogLine(text);
        return line && needed.needs(*line, place++);
    });
}

LogEnd endOf(Files& files, const std::string& path) {
    NeededLines needed;
    const auto [damaged, torn] =
        readMessageLog(files, path, [&](const MessageLogLine& line) { needed.add(line); });
    if (torn || damaged > 0 || needed.isLittleOfAll()) {
        makeAnew(files, path, needed);
    }
    return {files, path, kind};
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
    const auto word = fields.field();
    std::optional<MessageLogLine> line;
    if (word == "messages" || word == "partly" || word == "unknown") {
        line = messagesLine(fields, word);
    } else if (word == "ended") {
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

LogFaults readMessageLog(const Files& files, std::string_view path,
                         const std::function<void(MessageLogLine& line)>& use) {
    return readCheckedLog(files, path, kind, [&](std::string_view text) {
        auto line = parseMessageLogLine(text);
        if (line) {
            use(*line);
        }
        return line.has_value();
    });
}

void addTotals(Files& files, const std::string& path, const TotalsLine& line) {
    if (isThatLog(files, path, kind)) {
        LogEnd end(files, path, kind);
        end.write(messageLogLineText(line));
        end.close();
    }
}

MessageLog::MessageLog(Files& files, const std::string& path) : end_(endOf(files, path)) {}

void MessageLog::write(const MessageLogLine& line) {
    end_.write(messageLogLineText(line));
}

void MessageLog::close() {
    end_.close();
}

} // namespace tarnwick
