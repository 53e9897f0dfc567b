#pragma once

#include "platform/tool_paths.hpp"

#include <map>
#include <string>
#include <string_view>

namespace tarnwick {

// ToolPaths with a memory: the system is asked once for each folder. For one job over many records,
// where the same few folders are named again and again. Refers to `paths`, which must outlive it.
class KnownToolPaths final : public ToolPaths {
  public:
    explicit KnownToolPaths(const ToolPaths& paths) : paths_(paths) {}

    [[nodiscard]] std::string toolPath(std::string_view path) const override;
    [[nodiscard]] char separator() const noexcept override { return paths_.separator(); }

  private:
    const ToolPaths& paths_;
    mutable std::map<std::string, std::string, std::less<>> folders_; // with a final separator
};

} // namespace tarnwick
