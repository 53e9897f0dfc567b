#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// Which messages of the tools count, and which fail their record. A pattern is one of file names
// (see wildcard.hpp) and means the whole message, but for the dots and blanks at its end.
struct MessagePatterns {
    std::vector<std::string> ignore;
    std::vector<std::string> failOn;

    [[nodiscard]] bool isIgnored(std::string_view message) const;
    // An ignored one fails nothing.
    [[nodiscard]] bool fails(std::string_view message) const;

    // A number that tells other patterns from these, in whatever order; 0 where none fails
    // anything.
    [[nodiscard]] std::uint64_t mark() const;

    bool operator==(const MessagePatterns&) const = default;
};

} // namespace tarnwick
