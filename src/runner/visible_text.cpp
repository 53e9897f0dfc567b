#include "runner/visible_text.hpp"

#include "common/text.hpp"
#include "platform/left_out.hpp"

#include <cstdint>

namespace tarnwick {
namespace {

// The number of a character of UTF-8 of two or three bytes; 0 for any other.
std::uint32_t codePoint(std::string_view bytes) noexcept {
    const auto at = [&](std::size_t place) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[place]));
    };
    if (bytes.size() == 2) {
        return (at(0) & 0x1FU) << 6U | (at(1) & 0x3FU);
    }
    return bytes.size() == 3 ? (at(0) & 0x0FU) << 12U | (at(1) & 0x3FU) << 6U | (at(2) & 0x3FU) : 0;
}

// The second set of control characters, the marks that turn the direction of writing, and what
// never is a character.
bool actsOnTheLine(std::uint32_t character) noexcept {
    return (character >= 0x80 && character < 0xA0) || character == 0x061C || character == 0x200E ||
           character == 0x200F || (character >= 0x2028 && character <= 0x202E) ||
           (character >= 0x2066 && character <= 0x2069) || character == 0xFEFF ||
           character == 0xFFFE || character == 0xFFFF;
}

std::string shownCharacter(std::string_view bytes, const CodePage& page) {
    const auto first = static_cast<unsigned char>(bytes.front());
    if (first == '\t') {
        return " ";
    }
    if (first < 0x20 || first == 0x7F || !page.isCharacter(bytes)) {
        return shownByNumber(first);
    }
    const auto character = page.isUtf8() ? codePoint(bytes) : 0;
    return actsOnTheLine(character) ? shownByNumber(character) : std::string(bytes);
}

} // namespace

std::string visibleText(std::string_view text, const CodePage& page) {
    std::string shown;
    shown.reserve(text.size());
    while (!text.empty()) {
        const auto bytes = text.substr(0, page.lengthOfFirst(text));
        shown += shownCharacter(bytes, page);
        text.remove_prefix(bytes.size());
    }
    return shown;
}

std::string lastLineOf(std::string_view text, std::size_t length) {
    constexpr std::string_view blank = " \t\r\n\v\f";
    const auto end = text.find_last_not_of(blank);
    if (end == std::string_view::npos) {
        return {};
    }
    text = text.substr(0, end + 1);
    const auto before = text.find_last_of("\r\n");
    text.remove_prefix(before == std::string_view::npos ? 0 : before + 1);
    text.remove_prefix(text.find_first_not_of(blank));
    return shortened(visibleText(text.substr(0, length + 1)), length);
}

std::string shortened(std::string_view text, std::size_t length, const CodePage& page) {
    constexpr std::string_view dots = "...";
    if (text.size() <= length) {
        return std::string(text);
    }
    std::string_view rest = text;
    std::size_t kept = 0;
    while (!rest.empty() && kept + page.lengthOfFirst(rest) + dots.size() <= length) {
        kept += page.lengthOfFirst(rest);
        rest.remove_prefix(page.lengthOfFirst(rest));
    }
    return std::string(text.substr(0, kept)).append(dots.substr(0, length - kept));
}

} // namespace tarnwick
