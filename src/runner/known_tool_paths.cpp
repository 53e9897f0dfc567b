#include "runner/known_tool_paths.hpp"

#include "platform/windows_path.hpp"

namespace tarnwick {

std::string KnownToolPaths::toolPath(std::string_view path) const {
    const auto name = lastPart(path);
    const auto folder = path.substr(0, path.size() - name.size());
    if (name.empty() || !isPossiblePath(name)) {
        return paths_.toolPath(path);
    }
    auto known = folders_.find(folder);
    if (known == folders_.end()) {
        std::string whole = paths_.toolPath(path);
        whole.erase(whole.rfind(separator()) + 1);
        known = folders_.emplace(folder, std::move(whole)).first;
    }
    return known->second + std::string(name);
}

} // namespace tarnwick
