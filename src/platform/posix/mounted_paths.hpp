#pragma once

#include "platform/posix/mounts.hpp"

#include <sys/stat.h>

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// Where something lies on this machine, and what is there.
struct HostEntry {
    std::string path;
    std::optional<struct stat> status; // nothing: there is no such file or folder
};

// A folder as it is given to be listed: "C:" is the drive's root.
[[nodiscard]] std::string asFolder(std::string_view folder);

// Where Windows paths lie on this machine: each on its drive or share, and there every name matches
// without regard to case, the one spelled alike first.
class MountedPaths {
  public:
    // The current folder is a Windows path; where it is none, paths are seen from C:.
    MountedPaths(Mounts mounts, std::string_view currentFolder);

    // Where `path` lies if every name on the disk is spelled as it is there. Raises 52, and
    // 68 or 76 where no such drive or share is known.
    [[nodiscard]] std::string spelled(std::string_view path) const;

    // What lies at `path`: all its folders exist; its last name is spelled as it is found there,
    // or as given where it is not. Raises 52 (bad name), 68 (no such drive), 76 (a folder is
    // missing).
    [[nodiscard]] HostEntry find(std::string_view path) const;
    [[nodiscard]] std::string hostPath(std::string_view path) const { return find(path).path; }

    // Where `path` lies in a folder, which exists, if its last name is spelled as it is on the
    // disk: for a name that this program makes, and that mostly is not there yet. To look for such
    // a one in any case of letters is to read the whole folder. Raises as find.
    [[nodiscard]] std::string placeFor(std::string_view path) const;

    // The full path, from its drive or share on, without "." and "..". Raises 52.
    [[nodiscard]] std::string fullPath(std::string_view path) const;

    // The drive or share that `path` lies on, upper-cased: "C:" or "\\SERVER\SHARE". Raises 52.
    [[nodiscard]] std::string volume(std::string_view path) const;

    [[nodiscard]] const std::string& currentFolder() const noexcept { return currentFolder_; }

  private:
    struct Path {
        std::string volume; // "C:" or "\\server\share"
        std::string names;  // each with a "\" before it
    };
    [[nodiscard]] Path parse(std::string_view path) const;
    [[nodiscard]] static Path parseShare(std::string_view path);
    [[nodiscard]] std::string spelled(const Path& path) const;
    [[nodiscard]] HostEntry search(const Path& path, std::string spelled) const;
    [[nodiscard]] HostEntry findNameByName(const Path& path) const;
    [[nodiscard]] std::string hostVolume(std::string_view volume) const;

    Mounts mounts_;
    std::string currentFolder_ = R"(C:\)"; // full
};

} // namespace tarnwick
