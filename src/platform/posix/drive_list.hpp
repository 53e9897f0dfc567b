#pragma once

#include "platform/posix/mounts.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// Who says which drives there are. An entry is a drive or share, "=" and a folder of this machine:
// "T:=/srv/meta", "\\server\share=/mnt/x" or "//server/share=/mnt/x"; blanks around both do not
// count. A relative folder is seen from the current one.
struct DriveSources {
    std::vector<std::string> options; // one entry each
    std::string variable;             // entries with ";" between them
    std::string fileName;             // for messages
    std::string fileText;             // an entry a line; a line may be empty or begin with "#"
};

// Their entries in this order, in which the first of a name counts (see Mounts). Raises 52, in a
// sentence with the entry and where it stands, for what is none.
[[nodiscard]] std::vector<Mount> driveList(const DriveSources& sources);

// The value of an environment variable; empty where it is not set.
using Environment = std::function<std::string(const std::string& name)>;

// The options given, the variable TARNWICK_DRIVES and the user's own file: tarnwick/drives in the
// folder XDG_CONFIG_HOME, or else in ".config" of the folder HOME. There need be none. Raises what
// opening and reading it do, in a sentence with its name.
[[nodiscard]] DriveSources driveSources(std::vector<std::string> options,
                                        const Environment& environment);

// The drives of a program, all of whose folders are there. Raises as driveList, and 76, in a
// sentence with drive and folder, where one is not.
[[nodiscard]] Mounts mountsFrom(const DriveSources& sources);

// The environment of this process.
[[nodiscard]] std::string environmentVariable(const std::string& name);

} // namespace tarnwick
