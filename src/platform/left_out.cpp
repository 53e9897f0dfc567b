#include "platform/left_out.hpp"

#include "platform/wildcard.hpp"

#include <utility>

namespace tarnwick {

void leaveOut(std::string shown, LeftOut& leftOut) {
    if (leftOut.count++ == 0 || nameLess(shown, leftOut.first)) {
        leftOut.first = std::move(shown);
    }
}

std::string shownByNumber(std::uint32_t character) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string number;
    for (; character != 0 || number.size() < 4; character >>= 4U) {
        number.insert(number.begin(), digits[character & 0xFU]);
    }
    return "<U+" + number + ">";
}

bool holdsShownNumber(std::string_view text) noexcept {
    return text.contains("<U+");
}

} // namespace tarnwick
