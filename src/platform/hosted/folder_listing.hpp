#pragma once

#include <sys/stat.h>

#include <functional>
#include <string>
#include <string_view>

namespace tarnwick {

enum class EntryKind { File, Folder };

// Calls `take` with the name and kind of each entry that a folder of this machine shows, in the
// folder's own order: its files and folders without "." and "..", the hidden and system ones (see
// HostedFiles), and what is neither file nor folder. One pass over the folder. The name holds
// during the call. Raises 76 (no such folder), 75 (may not be listed).
void listHostFolder(const std::string& hostFolder,
                    const std::function<void(std::string_view name, EntryKind kind)>& take);

// Whether the file is one of the folder's hidden or system ones, or the list of them.
[[nodiscard]] bool isHiddenOrSystem(const std::string& hostFolder, const std::string& name);

// Whether what lies there, with that status, is a folder that may be listed.
[[nodiscard]] bool isListable(const std::string& hostFolder, const struct stat& status);

} // namespace tarnwick
