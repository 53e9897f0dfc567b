#include "platform/default_extension.hpp"

#include "platform/windows_path.hpp"

#include <cstddef>

namespace tarnwick {
namespace {

// ".ini" for "*.ini"; empty for a pattern that names no single extension.
std::string_view extensionIn(std::string_view pattern) {
    if (!pattern.starts_with("*.")) {
        return {};
    }
    const std::string_view extension = pattern.substr(1);
    return extension.find_first_of("*?;") == std::string_view::npos ? extension
                                                                    : std::string_view();
}

std::string_view firstPattern(std::string_view filter) {
    const std::size_t bar = filter.find('|');
    if (bar == std::string_view::npos) {
        return {};
    }
    const std::string_view patterns = filter.substr(bar + 1);
    return patterns.substr(0, patterns.find('|'));
}

} // namespace

std::string withDefaultExtension(std::string_view path, std::string_view filter) {
    const std::string_view name = lastPart(path);
    std::string result(path);
    if (!name.empty() && !name.contains('.')) {
        result += extensionIn(firstPattern(filter));
    }
    return result;
}

} // namespace tarnwick
