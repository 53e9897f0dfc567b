#pragma once

#include <string>
#include <vector>

namespace tarnwick {

enum class EntryKind { File, Folder };

struct FolderEntry {
    std::string name;
    EntryKind kind = EntryKind::File;
};

// What a folder of this machine shows: its files and folders without "." and "..", the hidden and
// system ones (see HostedFiles), and what is neither file nor folder. One pass over the folder, in
// its own order. Raises 76 (no such folder), 75 (may not be listed).
[[nodiscard]] std::vector<FolderEntry> listHostFolder(const std::string& hostFolder);

// Whether the file is one of the folder's hidden or system ones, or tells which those are.
[[nodiscard]] bool isHiddenOrSystem(const std::string& hostFolder, const std::string& name);

// Raises as listHostFolder when the folder cannot be listed.
void requireListable(const std::string& hostFolder);

} // namespace tarnwick
