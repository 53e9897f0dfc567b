#include "common/text.hpp"

namespace tarnwick {

std::string quoted(std::string_view text) {
    std::string result;
    result.reserve(text.size() + 2);
    result.append(1, '"').append(text).append(1, '"');
    return result;
}

std::string without(std::string_view text, char character) {
    std::string result(text);
    std::erase(result, character);
    return result;
}

std::string withDoubled(std::string_view text, char character) {
    std::string result;
    for (const char each : text) {
        result.append(each == character ? 2 : 1, each);
    }
    return result;
}

} // namespace tarnwick
