#include "platform/windows_path.hpp"

#include "platform/characters.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

constexpr auto nowhere = std::string_view::npos;

bool hasControl(std::string_view path) noexcept {
    constexpr unsigned char firstPrintable = 0x20;
    return std::ranges::any_of(
        path, [](char c) { return static_cast<unsigned char>(c) < firstPrintable; });
}

bool isPossible(std::string_view path, std::string_view forbidden,
                const CodePage& codePage) noexcept {
    return !hasControl(path) && codePage.findFirstOf(path, forbidden) == nowhere;
}

bool endsInBackslash(std::string_view path, const CodePage& codePage) noexcept {
    return path.ends_with('\\') && codePage.findLastOf(path, "\\") == path.size() - 1;
}

} // namespace

bool beginsWithDrive(std::string_view path) noexcept {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    return path.size() >= 2 && path[1] == ':' && letters.contains(path[0]);
}

bool isPossiblePath(std::string_view path, const CodePage& codePage) noexcept {
    if (path.starts_with(R"(\\?\)")) { // the prefix that lifts the limit of a path's length
        path.remove_prefix(4);
    }
    if (beginsWithDrive(path)) {
        path.remove_prefix(2);
    }
    return isPossible(path, "\"<>|*?:", codePage);
}

bool isPossiblePattern(std::string_view path, const CodePage& codePage) noexcept {
    const auto pattern = lastPart(path, codePage);
    return isPossiblePath(path.substr(0, path.size() - pattern.size()), codePage) &&
           isPossible(pattern, "\"<>|:", codePage);
}

bool hasWildcard(std::string_view text) noexcept {
    return text.find_first_of("*?") != nowhere;
}

bool hasBackslash(std::string_view path, const CodePage& codePage) noexcept {
    return codePage.findFirstOf(path, "\\") != nowhere;
}

std::string_view lastPart(std::string_view path, const CodePage& codePage) noexcept {
    auto separator = codePage.findLastOf(path, R"(\/)");
    if (separator == nowhere && beginsWithDrive(path)) {
        separator = 1;
    }
    return separator == nowhere ? path : path.substr(separator + 1);
}

std::string GetFileName(std::string_view path, const CodePage& codePage) {
    const auto last = codePage.findLastOf(path, "\\");
    return std::string(last == nowhere ? path : path.substr(last + 1));
}

std::string GetFolderPath(std::string_view path, const CodePage& codePage) {
    const auto last = codePage.findLastOf(path, "\\");
    return std::string(last == nowhere ? std::string_view{} : path.substr(0, last));
}

std::string GetBaseName(std::string_view path, const CodePage& codePage) {
    std::string_view name = trim(path);
    for (const std::string_view separator : {"\\", "/"}) {
        const auto last = codePage.findLastOf(name, separator);
        if (last != nowhere) {
            name = trim(name.substr(last + 1));
        }
    }
    return std::string(name.substr(0, name.rfind('.')));
}

std::string withBackslash(std::string_view folder, const CodePage& codePage) {
    return joinPath(folder, {}, {}, codePage);
}

std::string joinPath(std::string_view folder, std::string_view name, std::string_view extension,
                     const CodePage& codePage) {
    std::string result;
    result.reserve(folder.size() + 1 + name.size() + extension.size());
    result.append(folder);
    if (!endsInBackslash(folder, codePage)) {
        result += '\\';
    }
    return result.append(name).append(extension);
}

} // namespace tarnwick
