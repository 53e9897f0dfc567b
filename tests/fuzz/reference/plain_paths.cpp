#include "reference/plain_paths.hpp"

#include "platform/case_folding.hpp"
#include "reference/plain_text.hpp"

#include <cstddef>
#include <vector>

namespace tarnwick::reference {
namespace {

std::string afterLast(const std::string& text, char separator) {
    const auto at = text.rfind(separator);
    return at == std::string::npos ? text : trimmed(text.substr(at + 1));
}

} // namespace

std::string relativeLink(const std::string& from, const std::string& to) {
    const std::vector<std::string> fromParts = split(from, "\\");
    const std::vector<std::string> toParts = split(to, "\\");
    // The last part of each is no folder.
    std::size_t common = 0;
    while (common + 1 < fromParts.size() && common + 1 < toParts.size() &&
           upperCase(fromParts[common]) == upperCase(toParts[common])) {
        ++common;
    }
    std::string result;
    for (std::size_t i = common; i + 1 < fromParts.size(); ++i) {
        result += "../";
    }
    for (std::size_t i = common; i < toParts.size(); ++i) {
        result += (i == common ? "" : "/") + toParts[i];
    }
    return result;
}

std::string baseName(const std::string& path) {
    const std::string name = afterLast(afterLast(trimmed(path), '\\'), '/');
    const auto dot = name.rfind('.');
    return dot == std::string::npos ? name : name.substr(0, dot);
}

} // namespace tarnwick::reference
