#pragma once

#include "platform/code_page.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// Between texts of any bytes and the places of a report. Whoever writes a text into a report takes
// it through one of these.

// What a report is in, whatever the program's own code page.
[[nodiscard]] const CodePage& utf8Page() noexcept;

// One line of UTF-8 without any character that acts: visibleText for UTF-8.
[[nodiscard]] std::string shownText(std::string_view text);

// shownText as content or between double or single quotation marks, in HTML and in XML.
[[nodiscard]] std::string markupText(std::string_view text);

// shownText as a cell of a CSV file, in quotation marks where it needs them. What a spreadsheet
// would take for a formula gets an apostrophe in front, also behind a ";" or "," within the cell.
[[nodiscard]] std::string csvCell(std::string_view text);

// A part of a link: every byte that is no letter, digit or one of "-._~" becomes "%" and its
// number.
[[nodiscard]] std::string linkPart(std::string_view bytes);

// A link to a folder that is percent-encoded already, as the value of an attribute: never one of
// another scheme than file:, so that nothing runs when somebody follows it.
[[nodiscard]] std::string folderLink(std::string_view folder);

} // namespace tarnwick
