#pragma once

#include "platform/posix/mounted_paths.hpp"
#include "platform/tool_paths.hpp"

#include <utility>

namespace tarnwick {

// The machine's own paths. What exists under exactly that spelling costs one question to the file
// system; for what does not, its folder is read: ask for the folder where many files are to be made
// in it.
class PosixToolPaths : public ToolPaths {
  public:
    // As PosixFiles.
    PosixToolPaths(Mounts mounts, std::string_view currentFolder)
        : paths_(std::move(mounts), currentFolder) {}

    [[nodiscard]] std::string toolPath(std::string_view path) const override;
    [[nodiscard]] char separator() const noexcept override { return '/'; }

  private:
    MountedPaths paths_;
};

} // namespace tarnwick
