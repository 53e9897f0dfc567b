#include "platform/case_folding.hpp"

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

constexpr std::array<char, 256> upperCaseTable() {
    std::array<char, 256> table{};
    for (unsigned code = 0; code < table.size(); ++code) {
        table.at(code) = static_cast<char>(code);
    }
    for (unsigned code = 'a'; code <= 'z'; ++code) {
        table.at(code) = static_cast<char>(code - 0x20);
    }
    for (unsigned code = 0xE0; code <= 0xFE; ++code) {
        if (code != 0xF7) { // the division sign has no other case
            table.at(code) = static_cast<char>(code - 0x20);
        }
    }
    table[0x9A] = '\x8A'; // s with caron
    table[0x9C] = '\x8C'; // oe ligature
    table[0x9E] = '\x8E'; // z with caron
    table[0xFF] = '\x9F'; // y with diaeresis
    return table;
}

constexpr auto upper = upperCaseTable();

} // namespace

char upperCase(char character) noexcept {
    return upper[static_cast<unsigned char>(character)];
}

std::string upperCase(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char c) { return upperCase(c); });
    return result;
}

bool equalIgnoringCase(std::string_view left, std::string_view right) noexcept {
    return std::ranges::equal(left, right,
                              [](char l, char r) { return upperCase(l) == upperCase(r); });
}

} // namespace tarnwick
