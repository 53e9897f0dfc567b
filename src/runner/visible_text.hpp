#pragma once

#include "platform/code_page.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwick {

// The text as it can be shown on a terminal or in a report: what would move the cursor, change a
// colour or turn the direction of writing is shown by its number, as in "<U+001B>", and so is what
// is no character of `page`. Names and what tools say are data.
[[nodiscard]] std::string visibleText(std::string_view text,
                                      const CodePage& page = systemCodePage());

// The last line of `text` that is not blank, visible and cut to so many bytes; empty where there is
// none.
[[nodiscard]] std::string lastLineOf(std::string_view text, std::size_t length = 200);

// The front of `text` of at most so many bytes, never half a character, with "..." where it was
// cut.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t length,
                                    const CodePage& page = systemCodePage());

} // namespace tarnwick
