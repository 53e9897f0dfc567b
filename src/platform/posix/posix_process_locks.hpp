#pragma once

#include "platform/posix/mounted_paths.hpp"
#include "platform/process_lock.hpp"

#include <utility>

namespace tarnwick {

// The file stays when the lock is given free: whoever deleted it could meet one who waits for it.
class PosixProcessLocks : public ProcessLocks {
  public:
    // As PosixFiles.
    PosixProcessLocks(Mounts mounts, std::string_view currentFolder)
        : paths_(std::move(mounts), currentFolder) {}

    [[nodiscard]] std::unique_ptr<HeldLock> tryLock(std::string_view path,
                                                    std::string_view holder) override;
    [[nodiscard]] bool isHeld(std::string_view path) const override;
    [[nodiscard]] std::string holderOf(std::string_view path) const override;

  private:
    MountedPaths paths_;
};

} // namespace tarnwick
