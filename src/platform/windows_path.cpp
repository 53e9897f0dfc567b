#include "platform/windows_path.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

bool isForbidden(char character) noexcept {
    constexpr unsigned char firstPrintable = 0x20;
    return static_cast<unsigned char>(character) < firstPrintable ||
           std::string_view("\"<>|*?:").find(character) != std::string_view::npos;
}

bool beginsWithDrive(std::string_view path) noexcept {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    return path.size() >= 2 && path[1] == ':' && letters.contains(path[0]);
}

} // namespace

bool isPossiblePath(std::string_view path) noexcept {
    if (path.starts_with(R"(\\?\)")) { // the prefix that lifts the limit of a path's length
        path.remove_prefix(4);
    }
    if (beginsWithDrive(path)) {
        path.remove_prefix(2);
    }
    return std::ranges::none_of(path, isForbidden);
}

bool isPossiblePattern(std::string_view path) noexcept {
    const auto pattern = lastPart(path);
    return isPossiblePath(path.substr(0, path.size() - pattern.size())) &&
           std::ranges::none_of(pattern,
                                [](char c) { return c != '*' && c != '?' && isForbidden(c); });
}

std::string_view lastPart(std::string_view path) noexcept {
    auto separator = path.find_last_of(R"(\/)");
    if (separator == std::string_view::npos && beginsWithDrive(path)) {
        separator = 1;
    }
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

bool hasWildcard(std::string_view text) noexcept {
    return text.find_first_of("*?") != std::string_view::npos;
}

} // namespace tarnwick
