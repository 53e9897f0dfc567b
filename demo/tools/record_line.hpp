#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace demo {

// One line of a record, as views into it.
struct RecordLine {
    std::size_t indentation = 0; // in blanks
    std::string_view text;       // from the first character that is no blank; blanks behind stay
    bool isBlank = false;
};
[[nodiscard]] RecordLine lookAt(std::string_view line);

// "Name: value". The name begins with a letter, goes on with letters, digits, "_", "-" and blanks,
// and has at most 64 characters; a blank or nothing follows the colon, so that no web address or
// time of day is taken for one.
struct Heading {
    std::string_view name;
    std::string_view value; // without blanks at its ends
};
[[nodiscard]] std::optional<Heading> headingOf(const RecordLine& line);

} // namespace demo
