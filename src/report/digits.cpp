#include "report/digits.hpp"

#include "report/escaping.hpp"

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

// The zeros beyond ASCII. Behind each stand the other nine, in their order.
constexpr auto zeros = std::to_array<char32_t>(
    {0x0660,  0x06F0,  0x07C0,  0x0966,  0x09E6,  0x0A66,  0x0AE6,  0x0B66,  0x0BE6,  0x0C66,
     0x0CE6,  0x0D66,  0x0DE6,  0x0E50,  0x0ED0,  0x0F20,  0x1040,  0x1090,  0x17E0,  0x1810,
     0x1946,  0x19D0,  0x1A80,  0x1A90,  0x1B50,  0x1BB0,  0x1C40,  0x1C50,  0xA620,  0xA8D0,
     0xA900,  0xA9D0,  0xA9F0,  0xAA50,  0xABF0,  0xFF10,  0x104A0, 0x10D30, 0x11066, 0x110F0,
     0x11136, 0x111D0, 0x112F0, 0x11450, 0x114D0, 0x11650, 0x116C0, 0x11730, 0x118E0, 0x11950,
     0x11C50, 0x11D50, 0x11DA0, 0x16A60, 0x16AC0, 0x16B50, 0x1D7CE, 0x1D7D8, 0x1D7E2, 0x1D7EC,
     0x1D7F6, 0x1E140, 0x1E2F0, 0x1E950, 0x1FBF0});
static_assert(std::ranges::is_sorted(zeros));

// Of the bytes of one character beyond ASCII.
constexpr char32_t numberOf(std::string_view character) noexcept {
    const auto first = static_cast<unsigned char>(character.front());
    char32_t number = first & (0xFFU >> (character.size() + 1));
    for (const char byte : character.substr(1)) {
        number = number << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    return number;
}

} // namespace

std::size_t lengthOfDigit(std::string_view text) noexcept {
    if (text.empty()) {
        return 0;
    }
    if (static_cast<unsigned char>(text.front()) < 0x80) {
        return text.front() >= '0' && text.front() <= '9' ? 1 : 0;
    }
    const std::size_t length = utf8Page().lengthOfFirst(text);
    if (length < 2) {
        return 0;
    }
    const char32_t number = numberOf(text.substr(0, length));
    const auto* const behind = std::ranges::upper_bound(zeros, number);
    return behind != zeros.begin() && number - *(behind - 1) < 10 ? length : 0;
}

} // namespace tarnwick
