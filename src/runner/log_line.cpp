#include "runner/log_line.hpp"

#include "common/text.hpp"
#include "runner/hash.hpp"
#include "runner/number_text.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::int64_t nanoseconds = 1'000'000'000;
constexpr std::string_view noStamp = "-";
constexpr std::size_t checksumLength = 8;

std::string checksum(std::string_view text) {
    return hexadecimal(hashOf(text)).substr(0, checksumLength);
}

// Tabs and line ends end fields and lines, so they are written as numbers; so is the "\" itself.
std::string escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char character : text) {
        if (character == '\\' || static_cast<unsigned char>(character) < 0x20) {
            result.append("\\x").append(
                hexadecimal(static_cast<unsigned char>(character)).substr(14));
        } else {
            result += character;
        }
    }
    return result;
}

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
        return "run\t" + std::to_string(line.run) + "\t" + escaped(line.begun) +
               "\tcommands=" + hexadecimal(conditions.commands) +
               "\tmp=" + stampText(conditions.mp) + "\tcns=" + stampText(conditions.cns) +
               "\tconfiguration=" + stampText(conditions.configuration) +
               "\taliases=" + stampText(conditions.aliases);
    }
    std::string operator()(const BegunLine& line) const {
        return "begun\t" + std::to_string(line.run) + "\t" + escaped(line.record);
    }
    std::string operator()(const SettledLine& line) const {
        return "settled\t" + std::to_string(line.run) + "\t" + escaped(line.record) + "\t" +
               escaped(line.log) + "\t" + std::to_string(line.begunIn);
    }
    std::string operator()(const RecordLine& line) const {
        std::string fields = (line.why.empty() ? "made\t" : "failed\t") + std::to_string(line.run) +
                             "\t" + escaped(line.record) + "\t" + stampText(line.stamp) + "\t" +
                             callsText(line.calls);
        if (!line.why.empty()) {
            return fields.append("\t").append(escaped(line.why));
        }
        for (const Stamp& product : line.products) {
            fields.append("\t").append(stampText(product));
        }
        return fields;
    }
};

// Takes a line apart from its front. Once something did not fit, it is no longer whole.
class LineParts {
  public:
    explicit LineParts(std::string_view text) : rest_(text), more_(true) {}

    [[nodiscard]] bool isWhole() const noexcept { return whole_; }
    [[nodiscard]] bool hasMore() const noexcept { return more_; }

    std::string_view field() {
        whole_ = whole_ && more_;
        const auto end = rest_.find('\t');
        more_ = end != std::string_view::npos;
        const auto result = rest_.substr(0, end);
        rest_ = more_ ? rest_.substr(end + 1) : std::string_view();
        return result;
    }

    std::string text() { return unescaped(field()); }

    template <typename Number>
    Number number(std::string_view digits) {
        Number result{};
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), result);
        whole_ = whole_ && error == std::errc() && end == digits.data() + digits.size();
        return result;
    }
    template <typename Number>
    Number number() {
        return number<Number>(field());
    }

    std::uint64_t commands() {
        const auto digits = after("commands=");
        std::uint64_t result = 0;
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), result, 16);
        whole_ = whole_ && error == std::errc() && end == digits.data() + digits.size();
        return result;
    }

    std::optional<Stamp> named(std::string_view name) {
        const auto text = after(name);
        return text == noStamp ? std::nullopt : std::optional(stamp(text));
    }

    Stamp stamp(std::string_view text) {
        const auto at = text.find('@');
        const auto point = text.find('.');
        if (at == std::string_view::npos || point == std::string_view::npos || point < at ||
            text.size() - point != 10) {
            whole_ = false;
            return {};
        }
        const auto whole = number<std::int64_t>(text.substr(at + 1, point - at - 1));
        const auto part = number<std::int64_t>(text.substr(point + 1));
        constexpr std::int64_t furthest = 9'223'372'035;
        whole_ = whole_ && whole <= furthest && whole >= -furthest && part >= 0;
        return {.size = number<std::uint64_t>(text.substr(0, at)),
                .time = whole_ ? whole * nanoseconds + part : 0};
    }

    std::vector<CallNote> calls() {
        std::vector<CallNote> result;
        auto text = field();
        while (whole_ && text != noStamp && !text.empty()) {
            const auto one = text.substr(0, text.find(','));
            result.push_back(call(one));
            text.remove_prefix(std::min(one.size() + 1, text.size()));
        }
        return result;
    }

    void spoil() noexcept { whole_ = false; }

  private:
    std::string_view after(std::string_view name) {
        const auto text = field();
        whole_ = whole_ && text.starts_with(name);
        return whole_ ? text.substr(name.size()) : std::string_view();
    }

    CallNote call(std::string_view text) {
        const auto first = text.find(':');
        const auto second = text.find(':', first + 1);
        const auto tool = text.substr(0, first);
        whole_ = whole_ && second != std::string_view::npos && (tool == "cns" || tool == "mp");
        if (!whole_) {
            return {};
        }
        return {.tool = tool == "cns" ? Tool::CNS : Tool::MP,
                .code = number<std::int64_t>(text.substr(first + 1, second - first - 1)),
                .seconds = number<double>(text.substr(second + 1))};
    }

    std::string unescaped(std::string_view text) {
        std::string result;
        result.reserve(text.size());
        for (auto at = text.find('\\'); at != std::string_view::npos; at = text.find('\\')) {
            result.append(text.substr(0, at));
            unsigned code = 0;
            const auto digits = text.substr(at).starts_with("\\x") ? text.substr(at + 2, 2) : "";
            const auto [end, error] =
                std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
            whole_ = whole_ && digits.size() == 2 && error == std::errc() &&
                     end == digits.data() + digits.size();
            result += static_cast<char>(code);
            text.remove_prefix(std::min(at + 4, text.size()));
        }
        return result.append(text);
    }

    std::string_view rest_;
    bool more_ = false;
    bool whole_ = true;
};

RunLine runLine(LineParts& parts) {
    RunLine line;
    line.run = parts.number<std::uint32_t>();
    line.begun = parts.text();
    line.conditions.commands = parts.commands();
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
        if (line.why.empty()) {
            parts.spoil(); // it would be taken for one that is made
        }
        return line;
    }
    while (parts.hasMore()) {
        line.products.push_back(parts.stamp(parts.field()));
    }
    return line;
}

} // namespace

std::string logLineText(const LogLine& line) {
    std::string fields = std::visit(FieldsOf(), line);
    const std::string sum = checksum(fields);
    return fields.append("\t").append(sum).append("\n");
}

std::optional<LogLine> parseLogLine(std::string_view text) {
    const auto last = text.rfind('\t');
    if (last == std::string_view::npos || checksum(text.substr(0, last)) != text.substr(last + 1)) {
        return std::nullopt;
    }
    LineParts parts(text.substr(0, last));
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
