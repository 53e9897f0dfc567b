#pragma once

#include "platform/case_folding.hpp"
#include "platform/characters.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

inline constexpr std::string_view lineEnd = "\r\n";

// `text` in double quotation marks; marks inside it stay as they are.
[[nodiscard]] std::string quoted(std::string_view text);

// `text` without any `character`.
[[nodiscard]] std::string without(std::string_view text, char character);

// `folder` with a final "\": appended only when it does not already end in one.
[[nodiscard]] std::string withBackslash(std::string_view folder);

// The file of that name and extension (dot included) in that folder.
[[nodiscard]] std::string joinPath(std::string_view folder, std::string_view name,
                                   std::string_view extension = {});

} // namespace tarnwick
