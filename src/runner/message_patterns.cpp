#include "runner/message_patterns.hpp"

#include "platform/wildcard.hpp"

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

} // namespace

bool MessagePatterns::isIgnored(std::string_view message) const {
    return matchesAny(message, ignore);
}

bool MessagePatterns::fails(std::string_view message) const {
    return matchesAny(message, failOn) && !isIgnored(message);
}

} // namespace tarnwick
