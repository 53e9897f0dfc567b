#include "common/known_folders.hpp"

#include "common/mod_main.hpp"

namespace tarnwick {

bool KnownFolders::exists(std::string_view path) {
    if (const auto known = answers_.find(path); known != answers_.end()) {
        return known->second;
    }
    const bool answer = FolderExists(files_, path);
    answers_.emplace(path, answer);
    return answer;
}

} // namespace tarnwick
