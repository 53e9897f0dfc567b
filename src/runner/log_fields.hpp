#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace tarnwick {

// What the lines of all logs have in common (docs/run-log.md): a line is fields between tabs, of
// which the last is a checksum of those before it; a text in a field has no tab and no line end.

// The text as it stands in a field: "\" and what lies below the blank are written as numbers.
[[nodiscard]] std::string asLogField(std::string_view text);

// The fields, which have tabs between them, with their checksum and "\n".
[[nodiscard]] std::string logLineOf(std::string fields);

// The fields of a line that comes without its "\n"; nothing where it is not whole.
[[nodiscard]] std::optional<std::string_view> fieldsOfLogLine(std::string_view line);

// A log begins with `title` and the number of its version. Returns whether `found` is that line; a
// beginning of it, which was cut short while the first log was made, is no fault either. Raises
// 321, with a sentence that begins with `what` and names `path`, where the file is another or one
// of a newer version.
[[nodiscard]] bool checkLogTitle(std::string_view found, std::string_view title, int version,
                                 std::string_view what, std::string_view path);

// Takes fields apart from their front. Once something did not fit, they are no longer whole.
class LogFields {
  public:
    explicit LogFields(std::string_view fields) : rest_(fields) {}

    [[nodiscard]] bool isWhole() const noexcept { return whole_; }
    [[nodiscard]] bool hasMore() const noexcept { return more_; }
    void require(bool fits) noexcept { whole_ = whole_ && fits; }

    std::string_view field();
    std::string text() { return textOf(field()); }
    // What asLogField made of a text.
    std::string textOf(std::string_view field);
    // What stands behind the "=" of a field of that name.
    std::string_view after(std::string_view nameAndSign);

    template <typename Number>
    Number number(std::string_view digits) {
        Number result{};
        const auto [behind, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), result);
        require(error == std::errc() && behind == digits.data() + digits.size());
        if constexpr (std::is_floating_point_v<Number>) {
            require(std::isfinite(result)); // "nan" and "inf" are no numbers here
        }
        return result;
    }
    template <typename Number>
    Number number() {
        return number<Number>(field());
    }
    std::uint64_t hexadecimalNumber(std::string_view digits);

  private:
    std::string_view rest_;
    bool more_ = true;
    bool whole_ = true;
};

} // namespace tarnwick
