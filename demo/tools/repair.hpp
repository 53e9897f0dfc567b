#pragma once

#include "aliases.hpp"
#include "record.hpp"

#include <span>
#include <string>
#include <vector>

namespace demo {

// A line that was left over.
struct Leftover {
    std::size_t line = 0;
    std::string text; // as it stands in the file, tabs made into blanks
};

struct Repaired {
    Record record;                    // as the element table has it
    std::size_t elements = 0;         // that were read
    std::vector<std::string> repairs; // one sentence each, in the order of the lines
    std::vector<Leftover> leftovers;
};

// Repairs a loosely written record. An element's name alone tells where it belongs: its
// indentation may be anything, its name may be written loosely or be an alias, its group may be
// missing or stand twice. Elements come out in the order of the element table, those of one name in
// the order of the file. What follows an element is its text; a line that looks like an unknown
// element is text only when it is indented deeper than the element before it. Such a line, text
// that follows no element and text of a group are left over.
[[nodiscard]] Repaired repair(std::span<const std::string> lines, const Aliases& aliases,
                              Language language);

} // namespace demo
