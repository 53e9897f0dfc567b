#pragma once

#include <string_view>

namespace tarnwick {

// Without the blanks (and only those: no tabs) at both ends. A view into `text`.
[[nodiscard]] std::string_view trim(std::string_view text) noexcept;

// Whether no byte is above 127: such a text is the same in every code page.
[[nodiscard]] bool isAscii(std::string_view text) noexcept;

} // namespace tarnwick
