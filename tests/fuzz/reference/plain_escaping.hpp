#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::reference {

// The way back from what a report writes, as its readers go it.

// What content or an attribute says.
[[nodiscard]] std::string withoutEntities(std::string_view markup);

// The cells of a line of a CSV file.
[[nodiscard]] std::vector<std::string> cellsOf(std::string_view line);

// The bytes of a part of a link.
[[nodiscard]] std::string withoutPercents(std::string_view part);

// Whether a text is UTF-8 that XML 1.0 allows, on one line.
[[nodiscard]] bool isTextOfOneLine(std::string_view text);

} // namespace tarnwick::reference
