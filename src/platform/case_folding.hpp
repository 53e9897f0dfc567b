#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

// 8-bit characters without regard to case, the Western European way (code page 1252): the letters
// beyond ASCII fold as well, so that a file name is the same name however it is written.

[[nodiscard]] char upperCase(char character) noexcept;
[[nodiscard]] std::string upperCase(std::string_view text);
[[nodiscard]] bool equalIgnoringCase(std::string_view left, std::string_view right) noexcept;

} // namespace tarnwick
