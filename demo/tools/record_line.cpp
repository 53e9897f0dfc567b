#include "record_line.hpp"

#include "common/text.hpp"

#include <algorithm>

namespace demo {
namespace {

constexpr std::size_t longestName = 64;

bool isLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool isNameCharacter(char character) {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '_' ||
           character == '-' || character == ' ';
}

} // namespace

RecordLine lookAt(std::string_view line) {
    const auto first = line.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {.indentation = 0, .text = {}, .isBlank = true};
    }
    return {.indentation = first, .text = line.substr(first), .isBlank = false};
}

std::optional<Heading> headingOf(const RecordLine& line) {
    const auto colon = line.text.substr(0, longestName + 1).find(':');
    if (colon == std::string_view::npos || colon == 0) {
        return std::nullopt;
    }
    const auto name = tarnwick::trim(line.text.substr(0, colon));
    const auto rest = line.text.substr(colon + 1);
    if (!isLetter(name.front()) || !std::ranges::all_of(name, isNameCharacter) ||
        (!rest.empty() && rest.front() != ' ')) {
        return std::nullopt;
    }
    return Heading{.name = name, .value = tarnwick::trim(rest)};
}

} // namespace demo
