#include "runner/number_text.hpp"

#include <array>
#include <charconv>

namespace tarnwick {
namespace {

// The longest number in fixed notation has 309 digits before the point.
using Digits = std::array<char, 400>;

} // namespace

std::string numberText(double number, int places) {
    Digits digits{};
    const auto end =
        std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed, places).ptr;
    return {digits.begin(), end};
}

std::string numberText(double number) {
    Digits digits{};
    return {digits.begin(), std::to_chars(digits.begin(), digits.end(), number).ptr};
}

} // namespace tarnwick
