#include "runner/log_fields.hpp"

#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "runner/hash.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

constexpr std::size_t checksumLength = 8;

std::string checksum(std::string_view text) {
    return hexadecimal(hashOf(text)).substr(0, checksumLength);
}

} // namespace

std::string asLogField(std::string_view text) {
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

std::string logLineOf(std::string fields) {
    const std::string sum = checksum(fields);
    return fields.append("\t").append(sum).append("\n");
}

std::optional<std::string_view> fieldsOfLogLine(std::string_view line) {
    const auto last = line.rfind('\t');
    if (last == std::string_view::npos || checksum(line.substr(0, last)) != line.substr(last + 1)) {
        return std::nullopt;
    }
    return line.substr(0, last);
}

bool checkLogTitle(std::string_view found, std::string_view title, int version,
                   std::string_view what, std::string_view path) {
    const std::string whole = std::string(title) + std::to_string(version);
    if (whole.starts_with(found)) {
        return whole == found;
    }
    const auto refuse = [&](std::string_view why) {
        throw RunTimeError(ErrorNumber::InvalidFileFormat,
                           std::string(what) + " " + quoted(path) + " " + std::string(why));
    };
    if (found.starts_with(title)) {
        LogFields digits(found.substr(title.size()));
        if (digits.number<int>() > version && digits.isWhole()) {
            refuse("was written by a newer version of tarnwick-run");
        }
    }
    refuse("is no log of tarnwick-run");
    return false;
}

std::string_view LogFields::field() {
    require(more_);
    const auto end = rest_.find('\t');
    more_ = end != std::string_view::npos;
    const auto result = rest_.substr(0, end);
    rest_ = more_ ? rest_.substr(end + 1) : std::string_view();
    return result;
}

std::string LogFields::textOf(std::string_view field) {
    std::string result;
    result.reserve(field.size());
    for (auto at = field.find('\\'); at != std::string_view::npos; at = field.find('\\')) {
        result.append(field.substr(0, at));
        const auto digits = field.substr(at).starts_with("\\x") ? field.substr(at + 2, 2) : "";
        require(digits.size() == 2);
        result += static_cast<char>(hexadecimalNumber(digits));
        field.remove_prefix(std::min(at + 4, field.size()));
    }
    return result.append(field);
}

std::string_view LogFields::after(std::string_view nameAndSign) {
    const auto text = field();
    require(text.starts_with(nameAndSign));
    return whole_ ? text.substr(nameAndSign.size()) : std::string_view();
}

std::uint64_t LogFields::hexadecimalNumber(std::string_view digits) {
    std::uint64_t result = 0;
    const auto [behind, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), result, 16);
    require(error == std::errc() && behind == digits.data() + digits.size());
    return result;
}

} // namespace tarnwick
