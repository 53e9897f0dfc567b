#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// Text of code page 1252 in code page 437; nothing where one of its characters is not there. No
// character becomes a similar one.
[[nodiscard]] std::optional<std::string> inCodePage437(std::string_view text);

} // namespace tarnwick
