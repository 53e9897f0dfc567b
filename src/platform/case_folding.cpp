#include "platform/case_folding.hpp"

#include "platform/characters.hpp"

#include <algorithm>
#include <cstdint>

namespace tarnwick {
namespace {

// The bytes of a character, as CodePage::takeUpperCased gives them in one number.
void appendBytes(std::uint32_t character, std::string& text) {
    for (unsigned shift = 24; shift > 0; shift -= 8) {
        if (character >> shift != 0) {
            text += static_cast<char>(character >> shift);
        }
    }
    text += static_cast<char>(character);
}

} // namespace

std::string upperCase(std::string_view text, const CodePage& codePage) {
    if (codePage.foldsByBytes() || isAscii(text)) {
        std::string result(text);
        std::ranges::transform(result, result.begin(),
                               [&](char c) { return codePage.upperCase(c); });
        return result;
    }
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        appendBytes(codePage.takeUpperCased(text), result);
    }
    return result;
}

bool equalIgnoringCase(std::string_view left, std::string_view right,
                       const CodePage& codePage) noexcept {
    if (codePage.foldsByBytes()) {
        return std::ranges::equal(
            left, right, {}, [&](char c) { return codePage.upperCase(c); },
            [&](char c) { return codePage.upperCase(c); });
    }
    while (!left.empty() && !right.empty()) {
        if (codePage.takeUpperCased(left) != codePage.takeUpperCased(right)) {
            return false;
        }
    }
    return left.empty() && right.empty();
}

} // namespace tarnwick
