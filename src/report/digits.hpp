#pragma once

#include <cstddef>
#include <string_view>

namespace tarnwick {

// How many bytes the first character of that UTF-8 has where it is a decimal digit of any script
// (of Unicode 14): "7", "٧", "७", "７". 0 where it is none, or there is no text.
[[nodiscard]] std::size_t lengthOfDigit(std::string_view text) noexcept;

} // namespace tarnwick
