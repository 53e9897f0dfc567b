#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {

// What the sections of the page share. Arguments that are said to be markup are escaped already.

// The front of a text, as much as a page has room for: JSON and CSV have it whole.
[[nodiscard]] std::string cutText(std::string_view text);

// The beginning of a section, with its heading and how many there are.
[[nodiscard]] std::string sectionBegin(std::string_view place, std::string_view heading);
[[nodiscard]] std::string sectionBegin(std::string_view place, std::string_view heading,
                                       std::uint64_t count);

// A page shows only the first of many: in which kinds of report are all? One as .csv has records,
// but neither shapes nor changes.
enum class AllAreIn : std::uint8_t { Json, JsonAndCsv };

// "And 12 more failed records: ..." where fewer are shown than there are; else nothing.
[[nodiscard]] std::string moreText(std::uint64_t all, std::uint64_t shown, std::string_view what,
                                   AllAreIn reports);

// A date as 2026-11-22T02:24:48Z, for people and for programs; any other text as it is.
[[nodiscard]] std::string timeElement(std::string_view time);

// A bar in a cell, as much of its width as `part` is of `whole`. Decoration: the number stands
// beside.
[[nodiscard]] std::string barCell(std::uint64_t part, std::uint64_t whole);

// A cell with a number.
[[nodiscard]] std::string numberCell(std::uint64_t number);

} // namespace tarnwick
