#pragma once

#include "platform/left_out.hpp"

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

enum class EntryKind { File, Folder, Unseen };

// Unseen is what is hidden or system, and "." and "..".
[[nodiscard]] EntryKind kindOf(const WIN32_FIND_DATAW& entry) noexcept;

// Gives every entry of the folder to `take`, in one pass. `folder` is possible and may end in "\".
// Raises 76, 75, 68, 71, 52.
void searchFolder(const std::string& folder,
                  const std::function<void(const WIN32_FIND_DATAW&)>& take);

// Gives every entry of that kind whose name matches to `take`, in the folder's own order, and under
// a name that can be told. One that has no place in the code page is held against `matches` by what
// it has there, and told under its short name; where short names are ignored, or there is none, it
// is left out. Raises as searchFolder.
[[nodiscard]] LeftOut
searchByName(const std::string& folder, EntryKind kind, bool ignoreShortNames,
             const std::function<bool(std::string_view)>& matches,
             const std::function<void(std::string name, const WIN32_FIND_DATAW&)>& take);

// Whether the entry stands for another one that may lie elsewhere. Others with a mark of their own,
// such as files that still lie in a cloud, are what they seem.
[[nodiscard]] bool isLink(const WIN32_FIND_DATAW& entry) noexcept;

// Whether searchFolder would not raise.
[[nodiscard]] bool canSearchFolder(const std::string& folder);

// The file or folder of that name, which holds no wildcard; nothing when there is none in its
// folder. Raises 76, 75, 68, 71, 52.
[[nodiscard]] std::optional<WIN32_FIND_DATAW> findEntry(const std::string& path);

} // namespace tarnwick
