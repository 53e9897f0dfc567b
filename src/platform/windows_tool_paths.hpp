#pragma once

#include "platform/tool_paths.hpp"

namespace tarnwick {

// On Windows: every path is the system's own already. What could be no path raises 52; what is not
// there is left for the tool to find.
class WindowsToolPaths : public ToolPaths {
  public:
    [[nodiscard]] std::string toolPath(std::string_view path) const override;
    [[nodiscard]] char separator() const noexcept override { return '\\'; }
};

} // namespace tarnwick
