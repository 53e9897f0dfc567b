#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {

// A number that tells texts apart, the same on every machine. No secret, and no defence against
// somebody who wants two texts to have one.
[[nodiscard]] std::uint64_t hashOf(std::string_view text) noexcept;

// In hexadecimal, 16 digits.
[[nodiscard]] std::string hexadecimal(std::uint64_t number);

} // namespace tarnwick
