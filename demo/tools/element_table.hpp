#pragma once

#include "messages.hpp"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace demo {

enum class Kind {
    Group, // holds other elements and no text
    Text,
    Date, // YYYYMMDD
    Longitude,
    Latitude,
};

struct ElementRule {
    std::string_view name;
    std::string_view parent; // empty at the top level
    Kind kind = Kind::Text;
    bool required = false;           // wherever its parent stands
    bool repeatable = false;         // no group is
    std::optional<Message> question; // the one that it answers; a group answers none
};

// Every element that the tools know, parents before their children and children in their usual
// order. A name stands once, so that a name alone tells where an element belongs.
[[nodiscard]] std::span<const ElementRule> elementTable();

// The rule of an element; null for a name that is not in the table, letter case included.
[[nodiscard]] const ElementRule* findElement(std::string_view name);

// The same for a name as people write it: in any case, with blanks or hyphens for underscores.
[[nodiscard]] const ElementRule* findElementLoosely(std::string_view name);

// Whether two names are one as people write them.
[[nodiscard]] bool sameNameLoosely(std::string_view left, std::string_view right);

// How many groups stand above the element.
[[nodiscard]] std::size_t depthOf(const ElementRule& rule);

} // namespace demo
