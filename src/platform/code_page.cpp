#include "platform/code_page.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

constexpr unsigned shiftJis = 932;
constexpr auto nowhere = std::string_view::npos;

std::array<char, 256> asciiLetters() {
    std::array<char, 256> table{};
    for (unsigned code = 0; code < table.size(); ++code) {
        const bool isSmall = code >= 'a' && code <= 'z';
        table.at(code) = static_cast<char>(isSmall ? code - 0x20 : code);
    }
    return table;
}

std::array<char, 256> westernLetters() {
    std::array<char, 256> table = asciiLetters();
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

unsigned byteAt(std::string_view text, std::size_t place) noexcept {
    return place < text.size() ? static_cast<unsigned char>(text[place]) : 0;
}

// 1 for what is no character of UTF-8, as a longer form than is needed or half of a pair.
std::size_t utf8Length(std::string_view text) noexcept {
    const unsigned lead = byteAt(text, 0);
    const std::size_t length = lead < 0xC2   ? 1
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 1;
    const unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (std::size_t place = 1; place < length; ++place) {
        const unsigned next = byteAt(text, place);
        if (next < (place == 1 ? lowest : 0x80) || next > (place == 1 ? highest : 0xBF)) {
            return 1;
        }
    }
    return length;
}

// The bytes of a character of UTF-8, more than one, as one number; and what that stands for.
char32_t fromUtf8(std::uint32_t bytes, std::size_t length) noexcept {
    char32_t character = 0;
    for (std::size_t place = 0; place < length; ++place) {
        character |= static_cast<char32_t>(bytes >> (8 * place) & 0x3FU) << (6 * place);
    }
    const std::size_t bits = 6 * (length - 1) + (7 - length); // the rest marks the first byte
    return character & ((char32_t{1} << bits) - 1);
}

// The other way, for what lies beyond ASCII.
std::uint32_t toUtf8(char32_t character) noexcept {
    const std::size_t length = character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    std::uint32_t bytes = 0;
    for (std::size_t place = 0; place < length; ++place) {
        const auto mark = place + 1 < length ? 0x80U : 0xF00U >> length & 0xFFU;
        bytes |= (mark | static_cast<std::uint32_t>(character >> (6 * place) & 0x3FU))
                 << (8 * place);
    }
    return bytes;
}

} // namespace

CodePage::CodePage(unsigned number) noexcept {
    constexpr std::array<unsigned, 4> doubleByte{shiftJis, 936, 949, 950};
    if (number == utf8) {
        kind_ = Kind::Utf8;
    } else if (std::ranges::find(doubleByte, number) != doubleByte.end()) {
        kind_ = Kind::DoubleByte;
    }
    hasKatakana_ = number == shiftJis;
    lastLead_ = hasKatakana_ ? 0xFC : 0xFE;
    upper_ = kind_ == Kind::SingleByte ? westernLetters() : asciiLetters();
}

std::size_t CodePage::lengthOfFirst(std::string_view text) const noexcept {
    if (kind_ == Kind::Utf8) {
        return utf8Length(text);
    }
    const unsigned lead = byteAt(text, 0);
    const bool isLead = kind_ == Kind::DoubleByte && lead >= firstLead_ && lead <= lastLead_ &&
                        (!hasKatakana_ || lead < 0xA0 || lead > 0xDF);
    return isLead && text.size() > 1 ? 2 : 1;
}

bool CodePage::isCharacter(std::string_view bytes) const noexcept {
    if (bytes.size() > 1 || byteAt(bytes, 0) < 0x80) {
        return true;
    }
    // The bytes that 1252 leaves free; a lead byte that nothing follows.
    constexpr std::string_view free = "\x81\x8D\x8F\x90\x9D";
    const bool isKatakana = hasKatakana_ && byteAt(bytes, 0) >= 0xA1 && byteAt(bytes, 0) <= 0xDF;
    return kind_ == Kind::SingleByte ? !free.contains(bytes.front()) : isKatakana;
}

CodePage::CodePage(CapitalOf capitalOf) noexcept : CodePage(utf8) {
    capitalOf_ = capitalOf;
}

std::uint32_t CodePage::takeBeyondAscii(std::string_view& text) const noexcept {
    const std::size_t length = lengthOfFirst(text);
    std::uint32_t character = static_cast<unsigned char>(upperCase(text.front()));
    for (std::size_t place = 1; place < length; ++place) {
        character = character << 8U | byteAt(text, place);
    }
    text.remove_prefix(length);
    if (capitalOf_ == nullptr || length == 1) {
        return character;
    }
    const char32_t capital = capitalOf_(fromUtf8(character, length));
    return capital < 0x80 ? character : toUtf8(capital);
}

std::size_t CodePage::findFirstOf(std::string_view text,
                                  std::string_view characters) const noexcept {
    if (!hasTrailBytes()) { // for one character the library has a quicker way, and does not take it
        return characters.size() == 1 ? text.find(characters.front())
                                      : text.find_first_of(characters);
    }
    for (std::size_t place = 0; place < text.size(); place += lengthOfFirst(text.substr(place))) {
        if (characters.contains(text[place])) {
            return place;
        }
    }
    return nowhere;
}

std::size_t CodePage::findLastOf(std::string_view text,
                                 std::string_view characters) const noexcept {
    if (!hasTrailBytes()) {
        return characters.size() == 1 ? text.rfind(characters.front())
                                      : text.find_last_of(characters);
    }
    std::size_t last = nowhere;
    for (std::size_t place = 0; place < text.size(); place += lengthOfFirst(text.substr(place))) {
        if (characters.contains(text[place])) {
            last = place;
        }
    }
    return last;
}

} // namespace tarnwick
