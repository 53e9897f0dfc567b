#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

// How the system, and so every outside tool, names what a Windows path names here: the same on
// Windows, a path of the machine's own elsewhere.
class ToolPaths {
  public:
    virtual ~ToolPaths() = default;

    // The file or folder need not exist; where its folder does, that is spelled as it is on the
    // disk. Raises 52 (bad name), 68 (no such drive), 76 (its folder is missing).
    [[nodiscard]] virtual std::string toolPath(std::string_view path) const = 0;

    // What separates folders in such a path.
    [[nodiscard]] virtual char separator() const noexcept = 0;
};

// Those of Windows: the paths as they are, be they possible or not.
class WindowsToolPaths final : public ToolPaths {
  public:
    [[nodiscard]] std::string toolPath(std::string_view path) const override {
        return std::string(path);
    }
    [[nodiscard]] char separator() const noexcept override { return '\\'; }
};

} // namespace tarnwick
