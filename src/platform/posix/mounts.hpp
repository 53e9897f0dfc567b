#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// A drive or share, and the folder of this machine that it is.
struct Mount {
    std::string volume;     // "T:" or "\\server\share"
    std::string hostFolder; // a relative one is seen from the current folder

    bool operator==(const Mount&) const = default;
};

// The share that is the whole machine.
inline constexpr std::string_view wholeMachine = R"(\\localhost\root)";

// Which drives and shares there are, and where they lie on this machine. A plain value.
class Mounts {
  public:
    // Those of the list, in any case of letters (of several of one name the first counts), and the
    // whole machine: so every path of this machine has a Windows path. Raises 76 (no folder given).
    [[nodiscard]] static Mounts of(std::vector<Mount> list);

    // Each folder x of `drivesRoot` is a drive, each folder unc/server/share of it a share, in any
    // case of letters; nothing else of this machine can be reached.
    [[nodiscard]] static Mounts below(std::string drivesRoot);

    // Where a drive or share lies: in a folder of this machine, and there below these names, whose
    // spelling on the disk may be another. Whether it exists is not asked.
    struct Place {
        std::string hostFolder; // without a "/" at its end: the root is ""
        std::string names;      // each with a "\" before it
    };

    // `volume` is "T:" or "\\server\share". Raises 68 (no such drive), 76 (no such share).
    [[nodiscard]] Place placeOf(std::string_view volume) const;

    // The Windows path of a file or folder of this machine, be it there or not: below the mount
    // whose folder is the longest that fits. A relative path is seen from the current folder; "."
    // and ".." are resolved without a look at links. Raises 52 (a name that no Windows path can
    // hold), 76 (below no mount).
    [[nodiscard]] std::string windowsPath(std::string_view hostPath) const;

  private:
    Mounts() = default;
    [[nodiscard]] const Mount* find(std::string_view volume) const; // null: none
    [[nodiscard]] Mount mountBelowRoot(std::string_view hostPath) const;
    [[nodiscard]] const Mount& longestAbove(std::string_view hostPath) const;

    std::vector<Mount> list_; // their folders full and without a "/" at the end
    std::string drivesRoot_;  // where there is no list
};

} // namespace tarnwick
