#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// Whether `name` matches one pattern, without regard to case: "*" stands for any characters, "?"
// for one; "*.*" is every name, one without a dot included. Short (8.3) names never match.
[[nodiscard]] bool matchesWildcard(std::string_view name, std::string_view pattern);

// Whether `name` matches any of the ";"-separated patterns; blanks around each are no part of it.
// No pattern at all (nothing but blanks and ";") is every name.
[[nodiscard]] bool matchesAnyWildcard(std::string_view name, std::string_view patterns);

// The order of names in every list of this program: by upper-cased characters, then, so that the
// order is always the same, by the characters themselves.
[[nodiscard]] bool nameLess(std::string_view left, std::string_view right);

// Puts the names into that order; several times faster than sorting with nameLess itself.
void sortNames(std::vector<std::string>& names);

} // namespace tarnwick
