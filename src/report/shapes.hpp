#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwick {

// What a message of that record has in common with those that differ from it only in numbers,
// quoted text, file names and paths. No rule knows a word of any language; text is UTF-8, and bytes
// that are none count as letters. First the files that are called as the record is, with their
// paths, become "…", also where blanks are in these: see withoutOwnName. Then, from left to right:
//
// 1. Quoted text becomes "…" between its marks: " and ", “ or „ and ” or “, « and », » and «,
//    ‹ and ›; and, where no letter stands before the first nor behind the last, ' or ‘ or ‚ and
//    ' or ’, and ` and ` or ' or ’. A mark without another one stays as it is; only where the
//    message was cut (it ends in "...") all that stands behind a " is quoted.
// 2. A word ends at a blank, at a mark that could quote, at one of ()[]{}<>|;= , at a comma that is
//    not between digits and at a colon that is not that of a drive (C:\) or an address (http://).
//    Marks .!? at its end are no part of it. It becomes "…" where it is a path: it has a \ or ://,
//    or a / at its beginning or behind a drive, "." , ".." or "~" there, or a / and behind the last
//    one a file name; and where it is a file name: behind its last dot, which is not its first
//    character, stand two to five letters and digits of ASCII, first a letter.
// 3. In all other words, digits of any script in a row are one "#", with single dots and commas
//    between them, and with a sign before them unless a letter, a digit or another sign stands
//    before that.
// 4. Several blanks are one, and there are none at the ends.
//
// The shape of a shape, of no record, is that shape. No shape is longer than two and a half times
// its message.
[[nodiscard]] std::string shapeOf(std::string_view message, std::string_view record = {});

// A shape is common where so large a part of the records have it whose messages are known, and at
// least so many of them: it says nothing of any one.
inline constexpr double commonPart = 0.95;
inline constexpr std::size_t leastCommon = 5;

[[nodiscard]] bool isCommon(std::size_t records, std::size_t known) noexcept;

} // namespace tarnwick
