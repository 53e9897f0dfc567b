#include "report/folder_links.hpp"

#include "platform/case_folding.hpp"
#include "report/escaping.hpp"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tarnwick {
namespace {

// What the names of its folders begin with: nothing on one machine, else a drive ("C:") or a
// server ("\\server").
struct PathParts {
    std::string root;
    std::vector<std::string_view> folders;
};

PathParts partsOf(std::string_view path, char separator) {
    PathParts parts;
    const bool onServer = separator == '\\' && path.starts_with("\\\\");
    while (!path.empty()) {
        const auto end = path.find(separator);
        if (const auto name = path.substr(0, end); !name.empty()) {
            parts.folders.push_back(name);
        }
        path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
    }
    if (separator == '\\' && !parts.folders.empty()) {
        parts.root = (onServer ? "\\\\" : "") + std::string(parts.folders.front());
        parts.folders.erase(parts.folders.begin());
    }
    return parts;
}

std::string absoluteRoot(const std::string& root) {
    if (root.starts_with("\\\\")) {
        return "file://" + linkPart(root.substr(2)) + "/";
    }
    return "file:///" + linkPart(root.substr(0, root.find(':'))) + ":/";
}

} // namespace

std::string linkToFolder(std::string_view from, std::string_view to, char separator) {
    const PathParts here = partsOf(from, separator);
    const PathParts there = partsOf(to, separator);
    const auto isSame = [&](std::string_view left, std::string_view right) {
        return separator == '\\' ? equalIgnoringCase(left, right, utf8Page()) : left == right;
    };
    std::string link;
    auto rest = there.folders.begin();
    if (!isSame(here.root, there.root)) {
        link = absoluteRoot(there.root);
    } else {
        const auto [parting, next] = std::ranges::mismatch(here.folders, there.folders, isSame);
        for (auto folder = parting; folder != here.folders.end(); ++folder) {
            link += "../";
        }
        rest = next;
    }
    for (; rest != there.folders.end(); ++rest) {
        link.append(linkPart(*rest)).append("/");
    }
    return link.empty() ? "./" : link;
}

} // namespace tarnwick
