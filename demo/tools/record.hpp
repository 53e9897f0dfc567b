#pragma once

#include "element_table.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace demo {

// One element of a record: a group has children, any other element has lines of text.
struct Element {
    const ElementRule* rule = nullptr; // of the element table; never null in a record
    std::size_t line = 0;              // of the file that it was read from, from 1
    std::vector<std::string> text;     // an empty line parts two paragraphs
    std::vector<Element> children;
};

// The elements of the top level. Never deeper than the element table.
using Record = std::vector<Element>;

// The first element of that name, at any depth; null when there is none.
[[nodiscard]] const Element* findIn(const Record& record, std::string_view name);

// The text of an element as one line.
[[nodiscard]] std::string textOf(const Element& element);

// The record as the tools read and write it: "Element: value", two blanks a level, the text of more
// than one line below its element.
[[nodiscard]] std::string recordText(const Record& record);

} // namespace demo
