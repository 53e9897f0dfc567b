#pragma once

#include "platform/files.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// The names of the files in one folder that match any of the ";"-separated patterns. It is nothing
// to look at: lists show what it found.
class FileList {
  public:
    // Refers to `files`, which must outlive it. Without a path it finds nothing.
    FileList(const Files& files, std::string_view pattern) : files_(files), pattern_(pattern) {}

    [[nodiscard]] const std::string& pattern() const noexcept { return pattern_; }
    void setPattern(std::string_view pattern);
    [[nodiscard]] const std::string& path() const noexcept { return path_; }
    // Raises 76 for a folder that cannot be listed; path and names stay as they were.
    void setPath(std::string_view path);

    // Sorted by name (see nameLess in platform/wildcard.hpp). The folder is listed by the first
    // call after the pattern or the path was set, to whatever value. Raises as Files::listFiles.
    [[nodiscard]] const std::vector<std::string>& names() { return listing().names; }
    // What has no name to be listed under; lists as names().
    [[nodiscard]] const LeftOut& leftOut() { return listing().leftOut; }

  private:
    [[nodiscard]] const Listing& listing();

    const Files& files_;
    std::string pattern_;
    std::string path_;
    Listing listing_;
    bool listed_ = true;
};

} // namespace tarnwick
