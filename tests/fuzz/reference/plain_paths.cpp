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

// A path taken apart: "C:\" or "\\server\share", and what stands between the backslashes behind it.
struct Parts {
    std::string root;
    std::vector<std::string> names;
};

Parts partsOf(const std::string& path) {
    Parts parts;
    if (path.starts_with("\\\\")) {
        parts.names = split(path.substr(2), "\\");
        parts.root = "\\\\" + parts.names.front();
        parts.names.erase(parts.names.begin());
        if (!parts.names.empty()) {
            parts.root += '\\' + parts.names.front();
            parts.names.erase(parts.names.begin());
        }
    } else {
        parts.root = path.substr(0, 2) + '\\';
        parts.names = split(path.substr(2), "\\");
    }
    return parts;
}

std::string below(const std::string& folder, const std::string& name) {
    return folder + (folder.ends_with('\\') ? "" : "\\") + name;
}

bool beginsWithLetterOfDrive(const std::string& path) {
    const bool letter =
        !path.empty() && ((path[0] >= 'a' && path[0] <= 'z') || (path[0] >= 'A' && path[0] <= 'Z'));
    return letter && path.size() > 1 && path[1] == ':';
}

bool holdsNone(const std::string& text, const std::string& forbidden) {
    for (const char character : text) {
        if (static_cast<unsigned char>(character) < ' ' || forbidden.contains(character)) {
            return false;
        }
    }
    return true;
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

std::string fullPath(const std::string& path, const std::string& folder) {
    std::string whole = trimmed(path);
    replaceAll(whole, "/", "\\");
    if (beginsWithLetterOfDrive(whole)) {
        whole = whole.substr(0, 2) + '\\' + whole.substr(2);
    } else if (!whole.starts_with("\\\\")) {
        whole = below(whole.starts_with("\\") ? partsOf(folder).root : folder, whole);
    }
    const Parts parts = partsOf(whole);
    std::vector<std::string> names;
    for (const std::string& name : parts.names) {
        if (name == ".." && !names.empty()) {
            names.pop_back();
        } else if (!name.empty() && name != "." && name != "..") {
            names.push_back(name);
        }
    }
    std::string result = parts.root;
    for (const std::string& name : names) {
        result = below(result, name);
    }
    return result;
}

std::string lastPart(const std::string& path) {
    for (std::size_t end = path.size(); end > 0; --end) {
        if (path[end - 1] == '\\' || path[end - 1] == '/') {
            return path.substr(end);
        }
    }
    return beginsWithLetterOfDrive(path) ? path.substr(2) : path;
}

bool isPossiblePath(const std::string& path) {
    const std::string behindPrefix = path.starts_with("\\\\?\\") ? path.substr(4) : path;
    return holdsNone(beginsWithLetterOfDrive(behindPrefix) ? behindPrefix.substr(2) : behindPrefix,
                     "\"<>|*?:");
}

bool isPossiblePattern(const std::string& path) {
    const std::string pattern = lastPart(path);
    return isPossiblePath(path.substr(0, path.size() - pattern.size())) &&
           holdsNone(pattern, "\"<>|:");
}

std::string withDefaultExtension(const std::string& path, const std::string& filter) {
    const std::string name = lastPart(path);
    const std::vector<std::string> entries = split(filter, "|");
    if (name.empty() || name.contains('.') || entries.size() < 2 || !entries[1].starts_with("*.")) {
        return path;
    }
    const std::string extension = entries[1].substr(1);
    return extension.find_first_of("*?;") == std::string::npos ? path + extension : path;
}

} // namespace tarnwick::reference
