#include "platform/characters.hpp"

#include <algorithm>

namespace tarnwick {

std::string_view trim(std::string_view text) noexcept {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool isAscii(std::string_view text) noexcept {
    return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) > 0x7F; });
}

} // namespace tarnwick
