#pragma once

#include "platform/code_page.hpp"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnwick {

// Whether `name` matches one pattern, without regard to case, the way the system's own listing does
// it: "*" stands for any characters, "?" for one, or for none before a dot and at the end of the
// name; a dot before a wildcard also stands for the end of a name without one ("README.*"), and one
// at the end of the pattern for a name without an extension ("*."). Blanks and dots at the end are
// no part of a pattern else. Short (8.3) names never match.
[[nodiscard]] bool matchesWildcard(std::string_view name, std::string_view pattern,
                                   const CodePage& codePage = systemCodePage());

// Whether `name` matches any of the ";"-separated patterns; blanks around each are no part of it.
// No pattern at all (nothing but blanks and ";") is every name.
[[nodiscard]] bool matchesAnyWildcard(std::string_view name, std::string_view patterns);

// The order of names in every list of this program: by upper-cased characters, then, so that the
// order is always the same, by the characters themselves.
struct NameLess {
    [[nodiscard]] bool operator()(std::string_view left, std::string_view right,
                                  const CodePage& codePage = systemCodePage()) const;
};
inline constexpr NameLess nameLess{};

// The places of the names in that order; several times faster than sorting with nameLess itself.
[[nodiscard]] std::vector<std::size_t> orderOfNames(std::span<const std::string_view> names,
                                                    const CodePage& codePage = systemCodePage());

// Puts items into the order of their names. `nameOf` gives a reference to the name of one.
template <typename Item, typename NameOf>
void sortByName(std::vector<Item>& items, const NameOf& nameOf,
                const CodePage& codePage = systemCodePage()) {
    std::vector<std::string_view> names;
    names.reserve(items.size());
    for (const Item& item : items) {
        names.emplace_back(std::invoke(nameOf, item));
    }
    std::vector<Item> sorted;
    sorted.reserve(items.size());
    for (const std::size_t place : orderOfNames(names, codePage)) {
        sorted.push_back(std::move(items[place]));
    }
    items = std::move(sorted);
}

inline void sortNames(std::vector<std::string>& names,
                      const CodePage& codePage = systemCodePage()) {
    sortByName(names, std::identity(), codePage);
}

} // namespace tarnwick
