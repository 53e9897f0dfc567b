#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick::reference {

// Text of code page 1252, by the tables of this machine's own system: upper-cased where the upper
// case has a place there too, and in code page 437, where every character of it has a place there.
[[nodiscard]] std::string upperCase(std::string_view text);
[[nodiscard]] std::optional<std::string> inCodePage437(std::string_view text);

} // namespace tarnwick::reference
