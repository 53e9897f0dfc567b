#pragma once

#include "platform/case_folding.hpp"
#include "platform/characters.hpp"
#include "platform/windows_path.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

inline constexpr std::string_view lineEnd = "\r\n";

// `text` in double quotation marks; marks inside it stay as they are.
[[nodiscard]] std::string quoted(std::string_view text);

// `text` without any `character`.
[[nodiscard]] std::string without(std::string_view text, char character);

// `text` with two for each `character`.
[[nodiscard]] std::string withDoubled(std::string_view text, char character);

} // namespace tarnwick
