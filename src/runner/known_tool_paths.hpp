#pragma once

#include "platform/tool_paths.hpp"

#include <map>
#include <string>
#include <string_view>

namespace tarnwick {

// ToolPaths with a memory: the system is asked only once for each folder, and for each file that
// exists already. For one job over many records, where the same few are named again and again.
// Refers to `paths`, which must outlive it.
class KnownToolPaths final : public ToolPaths {
  public:
    explicit KnownToolPaths(const ToolPaths& paths) : paths_(paths) {}

    // Of a file to be made, or one that is spelled as it is on the disk.
    [[nodiscard]] std::string toolPath(std::string_view path) const override;
    // Of a file that may be spelled otherwise there.
    [[nodiscard]] std::string toolPathOfExisting(std::string_view path) const;

    [[nodiscard]] char separator() const noexcept override { return paths_.separator(); }

  private:
    const ToolPaths& paths_;
    mutable std::map<std::string, std::string, std::less<>> folders_; // with a final separator
    mutable std::map<std::string, std::string, std::less<>> files_;
};

} // namespace tarnwick
