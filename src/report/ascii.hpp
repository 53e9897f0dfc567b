#pragma once

namespace tarnwick {

constexpr bool isAsciiLetter(char character) noexcept {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}
constexpr bool isAsciiDigit(char character) noexcept {
    return character >= '0' && character <= '9';
}

} // namespace tarnwick
