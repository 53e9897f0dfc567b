#include "report/own_name.hpp"

#include "report/ascii.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick {
namespace {

constexpr bool isSeparator(char character) noexcept {
    return character == '\\' || character == '/';
}

// Blanks and marks beside which a name can stand: of ASCII, those of typesetters (U+2000 to
// U+203F) and of East Asia (U+3000 to U+303F), and « and ».
constexpr std::string_view besideNames = " \t\n\v\f\r()[]{}<>|;=,:\"'`";

bool isMark(std::string_view character) noexcept {
    return character.starts_with("\xE2\x80") || character.starts_with("\xE3\x80") ||
           character == "\u00AB" || character == "\u00BB";
}

bool standsAtBegin(std::string_view text, std::size_t place) noexcept {
    return place == 0 || besideNames.contains(text[place - 1]) ||
           (place >= 3 && isMark(text.substr(place - 3, 3))) ||
           (place >= 2 && isMark(text.substr(place - 2, 2)));
}

bool endsBefore(std::string_view rest) noexcept {
    rest.remove_prefix(std::min(rest.find_first_not_of(".!?"), rest.size()));
    return rest.empty() || besideNames.contains(rest.front()) || isMark(rest.substr(0, 3)) ||
           isMark(rest.substr(0, 2));
}

bool isBehindDrive(std::string_view text, std::size_t place) noexcept {
    return place >= 2 && text[place - 1] == ':' && isSeparator(text[place]) &&
           isAsciiLetter(text[place - 2]) && standsAtBegin(text, place - 2);
}

bool opensPath(std::string_view text) noexcept {
    if (text.starts_with("\\\\")) {
        return true;
    }
    const auto slash = text.find_first_of("/\\");
    const auto first = text.substr(0, slash);
    return slash != std::string_view::npos &&
           ((first.empty() && text[slash] == '/') || first == "." || first == ".." || first == "~");
}

// Where the path begins that ends before `name`; a word at least.
std::size_t pathBegin(std::string_view text, std::size_t name) noexcept {
    constexpr std::string_view inNoPath = "\"<>|*?:";
    std::size_t word = name;
    bool inWord = true;
    for (std::size_t place = name; place-- > 0;) {
        const char character = text[place];
        if (isBehindDrive(text, place)) {
            return place - 2;
        }
        if (inNoPath.contains(character)) {
            break;
        }
        if (standsAtBegin(text, place)) {
            if (opensPath(text.substr(place))) {
                return place;
            }
            word = inWord ? place : word;
            inWord = false;
        }
    }
    return word;
}

// The letters and digits at the front.
std::string_view firstWord(std::string_view text) noexcept {
    const auto* const end = std::ranges::find_if_not(
        text, [](char character) { return isAsciiDigit(character) || isAsciiLetter(character); });
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

} // namespace

bool isExtension(std::string_view text) noexcept {
    return text.size() >= 2 && text.size() <= 5 && isAsciiLetter(text.front()) &&
           std::ranges::all_of(text, [](char character) {
               return isAsciiDigit(character) || isAsciiLetter(character);
           });
}

std::string withoutOwnName(std::string_view message, std::string_view record) {
    const auto dot = record.rfind('.');
    if (dot == std::string_view::npos || dot == 0) {
        return std::string(message);
    }
    const auto stem = record.substr(0, dot + 1); // with its dot
    const auto own = record.substr(dot + 1);
    const bool ownIsWord = !own.empty() && isAsciiLetter(own.front());
    std::string text;
    std::size_t taken = 0;
    for (auto at = message.find(stem); at != std::string_view::npos;
         at = message.find(stem, at + 1)) {
        const auto rest = message.substr(at + stem.size());
        const auto extension = firstWord(rest);
        const bool isName = isExtension(extension) || (ownIsWord && extension == own);
        const bool inPath = at > 0 && isSeparator(message[at - 1]);
        if (at < taken || !isName || !(inPath || standsAtBegin(message, at)) ||
            !endsBefore(rest.substr(extension.size()))) {
            continue;
        }
        const std::size_t begin = inPath ? std::max(taken, pathBegin(message, at)) : at;
        text.append(message.substr(taken, begin - taken)).append("\u2026");
        taken = at + stem.size() + extension.size();
    }
    return text.append(message.substr(taken));
}

} // namespace tarnwick
