#include "runner/message_patterns.hpp"

#include "platform/wildcard.hpp"
#include "runner/hash.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

// No file's name ends in one of these, and no pattern of names can: sentences do.
std::string_view withoutEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of(". ") + 1);
}

bool matchesAny(std::string_view message, const std::vector<std::string>& patterns) {
    return std::ranges::any_of(patterns, [&](std::string_view pattern) {
        return matchesWildcard(withoutEnd(message), withoutEnd(pattern));
    });
}

// Sorted, each behind a sign that no pattern has.
std::string together(std::vector<std::string> patterns, char sign) {
    std::ranges::sort(patterns);
    std::string text;
    for (const std::string& pattern : patterns) {
        (text += sign) += pattern;
    }
    return text;
}

} // namespace

bool MessagePatterns::isIgnored(std::string_view message) const {
    return matchesAny(message, ignore);
}

bool MessagePatterns::fails(std::string_view message) const {
    return matchesAny(message, failOn) && !isIgnored(message);
}

std::uint64_t MessagePatterns::mark() const {
    return failOn.empty() ? 0 : hashOf(together(failOn, '\n') + together(ignore, '\r'));
}

} // namespace tarnwick
