#pragma once

#include "platform/file_stamps.hpp"
#include "platform/posix/mounted_paths.hpp"

#include <utility>

namespace tarnwick {

// A link to a file is that file; what begins with a dot is hidden. A folder is read by one thread;
// where it holds many files, up to eight ask for their stamps. To look for a file that is not there
// in any case of letters is to read the whole folder: stampOfExact() is for products, which a tool
// is told to make under that name and which often are not there yet. Their folders match in any
// case all the same.
class PosixFileStamps : public FileStamps {
  public:
    // As PosixFiles.
    PosixFileStamps(Mounts mounts, std::string_view currentFolder)
        : paths_(std::move(mounts), currentFolder) {}

    [[nodiscard]] std::optional<Stamp> stampOf(std::string_view path) const override;
    [[nodiscard]] std::optional<Stamp> stampOfExact(std::string_view path) const override;
    [[nodiscard]] StampedListing listStamped(std::string_view folder) const override;

  private:
    MountedPaths paths_;
};

} // namespace tarnwick
