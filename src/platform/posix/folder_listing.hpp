#pragma once

#include <dirent.h>
#include <sys/stat.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// A folder of this machine, open to be listed.
class ListedFolder {
  public:
    // Raises 76 (no such folder), 75 (may not be listed).
    explicit ListedFolder(const std::string& hostFolder);

    // Its next entry, without "." and "..", in the folder's own order; null at the end. It holds
    // until the next call.
    [[nodiscard]] const dirent* next();

    // The status of one of its files, folders or whatever a link of it leads to; nothing where it
    // is gone. May be called from several threads at once.
    [[nodiscard]] std::optional<struct stat> statusOf(const char* name) const;

  private:
    struct Closer {
        void operator()(DIR* folder) const noexcept { ::closedir(folder); }
    };
    std::unique_ptr<DIR, Closer> folder_;
};

enum class EntryKind { File, Folder };

// Calls `take` with the name and kind of each file and folder in a folder of this machine, in the
// folder's own order, without "." and "..". One pass over the folder. The name holds during the
// call. Raises 76 (no such folder), 75 (may not be listed).
void listHostFolder(const std::string& hostFolder,
                    const std::function<void(std::string_view name, EntryKind kind)>& take);

// What a name looks like that has bytes which are no characters; nothing where it has none. Such a
// file is left out of listings.
[[nodiscard]] std::optional<std::string> shownWhereOdd(std::string_view name);

// Whether what lies there, with that status, is a folder that may be listed.
[[nodiscard]] bool isListable(const std::string& hostFolder, const struct stat& status);

} // namespace tarnwick
