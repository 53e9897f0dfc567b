#include "runner/log_line.hpp"

#include "runner/hash.hpp"
#include "runner/log_fields.hpp"
#include "runner/number_text.hpp"

#include <algorithm>
#include <limits>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::int64_t nanoseconds = 1'000'000'000;
constexpr std::string_view noStamp = "-";

std::string stampText(const Stamp& stamp) {
    // Before 1970 too, the part behind the point counts forwards.
    auto whole = stamp.time / nanoseconds;
    auto part = stamp.time % nanoseconds;
    if (part < 0) {
        part += nanoseconds;
        --whole;
    }
    const std::string digits = std::to_string(part);
    return std::to_string(stamp.size) + "@" + std::to_string(whole) + "." +
           std::string(9 - digits.size(), '0') + digits;
}

std::string stampText(const std::optional<Stamp>& stamp) {
    return stamp ? stampText(*stamp) : std::string(noStamp);
}

std::string callsText(const std::vector<CallNote>& calls) {
    std::string result;
    for (const auto& [tool, code, seconds] : calls) {
        result.append(result.empty() ? "" : ",")
            .append(tool == Tool::CNS ? "cns:" : "mp:")
            .append(std::to_string(code))
            .append(":")
            .append(numberText(seconds, 3));
    }
    return result.empty() ? std::string(noStamp) : result;
}

struct FieldsOf {
    std::string operator()(const RunLine& line) const {
        const RunConditions& conditions = line.conditions;
        return "run\t" + std::to_string(line.run) + "\t" + asLogField(line.begun) +
               "\tcommands=" + hexadecimal(conditions.commands) +
               "\tmp=" + stampText(conditions.mp) + "\tcns=" + stampText(conditions.cns) +
               "\tconfiguration=" + stampText(conditions.configuration) +
               "\taliases=" + stampText(conditions.aliases);
    }
    std::string operator()(const BegunLine& line) const {
        return "begun\t" + std::to_string(line.run) + "\t" + asLogField(line.record);
    }
    std::string operator()(const SettledLine& line) const {
        return "settled\t" + std::to_string(line.run) + "\t" + asLogField(line.record) + "\t" +
               asLogField(line.log) + "\t" + std::to_string(line.begunIn);
    }
    std::string operator()(const RecordLine& line) const {
        std::string fields = (line.why.empty() ? "made\t" : "failed\t") + std::to_string(line.run) +
                             "\t" + asLogField(line.record) + "\t" + stampText(line.stamp) + "\t" +
                             callsText(line.calls);
        if (!line.why.empty()) {
            return fields.append("\t").append(asLogField(line.why));
        }
        for (const Stamp& product : line.products) {
            fields.append("\t").append(stampText(product));
        }
        return fields;
    }
};

// The parts of this log's lines.
class LineParts : public LogFields {
  public:
    using LogFields::LogFields;

    std::optional<Stamp> named(std::string_view name) {
        const auto text = after(name);
        return text == noStamp ? std::nullopt : std::optional(stamp(text));
    }

    Stamp stamp(std::string_view text) {
        const auto at = text.find('@');
        const auto point = text.find('.');
        if (at == std::string_view::npos || point == std::string_view::npos || point < at ||
            text.size() - point != 10) {
            require(false);
            return {};
        }
        const auto whole = number<std::int64_t>(text.substr(at + 1, point - at - 1));
        const auto part = number<std::int64_t>(text.substr(point + 1));
        constexpr std::int64_t furthest = 9'223'372'035;
        require(whole <= furthest && whole >= -furthest && part >= 0);
        return {.size = number<std::uint64_t>(text.substr(0, at)),
                .time = isWhole() ? whole * nanoseconds + part : 0};
    }

    std::vector<CallNote> calls() {
        std::vector<CallNote> result;
        auto text = field();
        while (isWhole() && text != noStamp && !text.empty()) {
            const auto one = text.substr(0, text.find(','));
            result.push_back(call(one));
            text.remove_prefix(std::min(one.size() + 1, text.size()));
        }
        return result;
    }

  private:
    CallNote call(std::string_view text) {
        const auto first = text.find(':');
        const auto second = text.find(':', first + 1);
        const auto tool = text.substr(0, first);
        require(second != std::string_view::npos && (tool == "cns" || tool == "mp"));
        if (!isWhole()) {
            return {};
        }
        return {.tool = tool == "cns" ? Tool::CNS : Tool::MP,
                .code = number<std::int64_t>(text.substr(first + 1, second - first - 1)),
                .seconds = number<double>(text.substr(second + 1))};
    }
};

RunLine runLine(LineParts& parts) {
    RunLine line;
    line.run = parts.number<std::uint32_t>();
    parts.require(line.run < std::numeric_limits<std::uint32_t>::max()); // another must follow it
    line.begun = parts.text();
    line.conditions.commands = parts.hexadecimalNumber(parts.after("commands="));
    line.conditions.mp = parts.named("mp=");
    line.conditions.cns = parts.named("cns=");
    line.conditions.configuration = parts.named("configuration=");
    line.conditions.aliases = parts.named("aliases=");
    return line;
}

BegunLine begunLine(LineParts& parts) {
    BegunLine line;
    line.run = parts.number<std::uint32_t>();
    line.record = parts.text();
    return line;
}

SettledLine settledLine(LineParts& parts) {
    SettledLine line;
    line.run = parts.number<std::uint32_t>();
    line.record = parts.text();
    line.log = parts.text();
    line.begunIn = parts.number<std::uint32_t>();
    return line;
}

RecordLine recordLine(LineParts& parts, bool made) {
    RecordLine line;
    line.run = parts.number<std::uint32_t>();
    line.record = parts.text();
    line.stamp = parts.stamp(parts.field());
    line.calls = parts.calls();
    if (!made) {
        line.why = parts.text();
        parts.require(!line.why.empty()); // else it would be taken for one that is made
        return line;
    }
    while (parts.hasMore()) {
        line.products.push_back(parts.stamp(parts.field()));
    }
    return line;
}

} // namespace

std::string logLineText(const LogLine& line) {
    return logLineOf(std::visit(FieldsOf(), line));
}

std::optional<LogLine> parseLogLine(std::string_view text) {
    const auto fields = fieldsOfLogLine(text);
    if (!fields) {
        return std::nullopt;
    }
    LineParts parts(*fields);
    const auto kind = parts.field();
    std::optional<LogLine> line;
    if (kind == "run") {
        line = runLine(parts);
    } else if (kind == "begun") {
        line = begunLine(parts);
    } else if (kind == "settled") {
        line = settledLine(parts);
    } else if (kind == "made" || kind == "failed") {
        line = recordLine(parts, kind == "made");
    }
    return parts.isWhole() && !parts.hasMore() ? line : std::nullopt;
}

std::optional<std::string> recordOfLogLine(std::string_view text) {
    LineParts parts(text);
    if (parts.field() == "run") {
        return std::nullopt;
    }
    static_cast<void>(parts.field());
    std::string record = parts.text();
    return parts.isWhole() ? std::optional(std::move(record)) : std::nullopt;
}

} // namespace tarnwick
