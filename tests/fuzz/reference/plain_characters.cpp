#include "reference/plain_characters.hpp"

#include <array>
#include <cstddef>

namespace tarnwick::reference {
namespace {

bool isLeadByte(unsigned char byte, unsigned codePage) {
    switch (codePage) {
    case 932:
        return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    case 936:
    case 949:
    case 950:
        return byte >= 0x81 && byte <= 0xFE;
    default:
        return false;
    }
}

// Whether these bytes are one character of UTF-8, by the number that they stand for.
bool isOneOfUtf8(std::string_view bytes) {
    constexpr std::array<unsigned, 5> marks{0, 0, 0xC0, 0xE0, 0xF0}; // by length
    constexpr std::array<unsigned, 5> least{0, 0, 0x80, 0x800, 0x10000};
    const unsigned mark = marks.at(bytes.size());
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const unsigned beyondMark = 0x80U >> bytes.size(); // the bit that ends the mark is not set
    if (lead < mark || lead >= mark + beyondMark) {
        return false;
    }
    unsigned number = lead - mark;
    for (const char byte : bytes.substr(1)) {
        const auto next = static_cast<unsigned char>(byte);
        if (next < 0x80 || next > 0xBF) {
            return false;
        }
        number = number * 0x40 + next - 0x80;
    }
    const bool halfOfAPair = number >= 0xD800 && number <= 0xDFFF;
    return number >= least.at(bytes.size()) && number <= 0x10FFFF && !halfOfAPair;
}

std::size_t lengthOfFirst(std::string_view text, unsigned codePage) {
    for (std::size_t length = 2; codePage == 65001 && length <= 4; ++length) {
        if (length <= text.size() && isOneOfUtf8(text.substr(0, length))) {
            return length;
        }
    }
    return text.size() > 1 && isLeadByte(static_cast<unsigned char>(text[0]), codePage) ? 2 : 1;
}

} // namespace

std::vector<std::string> charactersOf(std::string_view text, unsigned codePage) {
    std::vector<std::string> characters;
    while (!text.empty()) {
        characters.emplace_back(text.substr(0, lengthOfFirst(text, codePage)));
        text.remove_prefix(characters.back().size());
    }
    return characters;
}

std::size_t firstOf(const std::vector<std::string>& characters, std::string_view wanted) {
    std::size_t place = 0;
    for (const std::string& character : characters) {
        if (character.size() == 1 && wanted.contains(character)) {
            return place;
        }
        place += character.size();
    }
    return std::string::npos;
}

std::size_t lastOf(const std::vector<std::string>& characters, std::string_view wanted) {
    std::size_t last = std::string::npos;
    std::size_t place = 0;
    for (const std::string& character : characters) {
        if (character.size() == 1 && wanted.contains(character)) {
            last = place;
        }
        place += character.size();
    }
    return last;
}

std::string asciiCapitals(const std::vector<std::string>& characters) {
    std::string result;
    for (std::string character : characters) {
        if (character.size() == 1 && character[0] >= 'a' && character[0] <= 'z') {
            character[0] = static_cast<char>(character[0] - 0x20);
        }
        result += character;
    }
    return result;
}

} // namespace tarnwick::reference
