#pragma once

namespace tarnwick {

// The capital of a letter of any script; what is none, and what has none of one character, stays.
[[nodiscard]] char32_t capitalOf(char32_t character) noexcept;

} // namespace tarnwick
