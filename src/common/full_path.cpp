#include "common/full_path.hpp"

#include "common/text.hpp"
#include "platform/windows_path.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick {
namespace {

std::string withBackslashes(std::string_view path) {
    std::string result(path);
    std::ranges::replace(result, '/', '\\');
    return result;
}

std::string_view upToBackslash(std::string_view text, const CodePage& codePage) {
    return text.substr(0, codePage.findFirstOf(text, "\\"));
}

// "C:\", "\\server\share", or nothing at all.
std::string_view rootOf(std::string_view path, const CodePage& codePage) {
    if (isOnShare(path)) {
        const auto server = upToBackslash(path.substr(2), codePage).size() + 2;
        const auto share = path.substr(std::min(server + 1, path.size()));
        return path.substr(0, server + 1 + upToBackslash(share, codePage).size());
    }
    constexpr std::size_t driveRoot = 3;
    return beginsWithDrive(path) ? path.substr(0, driveRoot) : std::string_view();
}

std::vector<std::string> namesIn(std::string_view path, const CodePage& codePage) {
    std::vector<std::string> names;
    while (!path.empty()) {
        const auto name = upToBackslash(path, codePage);
        path.remove_prefix(std::min(name.size() + 1, path.size()));
        if (name == ".." && !names.empty()) {
            names.pop_back();
        } else if (!name.empty() && name != "." && name != "..") {
            names.emplace_back(name);
        }
    }
    return names;
}

std::string seenFrom(std::string_view folder, std::string path, const CodePage& codePage) {
    if (isOnShare(path)) {
        return path;
    }
    if (beginsWithDrive(path)) { // without a root it is the drive's root all the same
        return path.substr(0, 2) + '\\' + path.substr(2);
    }
    if (path.starts_with('\\')) {
        return withBackslash(rootOf(folder, codePage), codePage) + path;
    }
    return withBackslash(folder, codePage) + path;
}

} // namespace

std::string fullPath(std::string_view path, std::string_view folder, const CodePage& codePage) {
    const std::string whole = seenFrom(folder, withBackslashes(trim(path)), codePage);
    std::string result(rootOf(whole, codePage));
    const auto names = namesIn(std::string_view(whole).substr(result.size()), codePage);
    for (const std::string& name : names) {
        result = withBackslash(result, codePage).append(name);
    }
    return result;
}

bool isFullPath(std::string_view path) {
    const std::string text = withBackslashes(trim(path));
    return isOnShare(text) || (beginsWithDrive(text) && text.substr(2).starts_with('\\'));
}

std::string driveOf(std::string_view fullPath) {
    return beginsWithDrive(fullPath) ? upperCase(fullPath.substr(0, 2)) : std::string();
}

std::vector<std::string> foldersOnTheWay(std::string_view fullPath, const CodePage& codePage) {
    const auto root = rootOf(fullPath, codePage);
    std::vector<std::string> folders = namesIn(fullPath.substr(root.size()), codePage);
    folders.emplace(folders.begin(), root);
    return folders;
}

} // namespace tarnwick
