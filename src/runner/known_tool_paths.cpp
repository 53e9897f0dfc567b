#include "runner/known_tool_paths.hpp"

#include "platform/windows_path.hpp"

#include <utility>

namespace tarnwick {

std::string KnownToolPaths::toolPath(std::string_view path) const {
    const auto name = lastPart(path);
    const auto folder = path.substr(0, path.size() - name.size());
    if (name.empty() || !isPossiblePath(name)) {
        return paths_.toolPath(path);
    }
    auto known = folders_.find(folder);
    if (known == folders_.end()) {
        std::string whole = paths_.toolPath(folder);
        if (!whole.ends_with(separator())) {
            whole += separator();
        }
        known = folders_.emplace(folder, std::move(whole)).first;
    }
    return known->second + std::string(name);
}

std::string KnownToolPaths::toolPathOfExisting(std::string_view path) const {
    auto known = files_.find(path);
    if (known == files_.end()) {
        known = files_.emplace(path, paths_.toolPath(path)).first;
    }
    return known->second;
}

} // namespace tarnwick
