#pragma once

#include "common/mod_main.hpp"
#include "platform/files.hpp"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tarnwick {

// FolderExists with a memory: each folder is asked for once. For the length of one job over many
// records, where the same few output folders are named again and again; make a new one for the
// next job. Refers to `files`, which must outlive it.
class KnownFolders {
  public:
    explicit KnownFolders(const Files& files) : files_(files) {}

    [[nodiscard]] bool exists(std::string_view path) {
        const auto known = answers_.find(path);
        return known != answers_.end()
                   ? known->second
                   : answers_.emplace(path, FolderExists(files_, path)).first->second;
    }

  private:
    const Files& files_;
    std::map<std::string, bool, std::less<>> answers_;
};

} // namespace tarnwick
