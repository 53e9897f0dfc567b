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

std::string withBackslash(std::string_view folder) {
    return joinPath(folder, {});
}

std::string joinPath(std::string_view folder, std::string_view name, std::string_view extension) {
    std::string result;
    result.reserve(folder.size() + 1 + name.size() + extension.size());
    result.append(folder);
    if (!folder.ends_with('\\')) {
        result += '\\';
    }
    return result.append(name).append(extension);
}

} // namespace tarnwick
