#pragma once

#include "platform/win32/handle.hpp"

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

namespace tarnwick {

enum class EntryKind { File, Folder, Unseen };

// Unseen is what is hidden or system, and "." and "..".
[[nodiscard]] EntryKind kindOf(const WIN32_FIND_DATAW& entry) noexcept;

// Gives every entry of the folder to `take`, in one pass. `folder` is possible and may end in "\".
// Raises 76, 75, 68, 71, 52.
void searchFolder(const std::string& folder,
                  const std::function<void(const WIN32_FIND_DATAW&)>& take);

// Whether searchFolder would not raise.
[[nodiscard]] bool canSearchFolder(const std::string& folder);

// The file or folder of that name, which holds no wildcard; nothing when there is none in its
// folder. Raises 76, 75, 68, 71, 52.
[[nodiscard]] std::optional<WIN32_FIND_DATAW> findEntry(const std::string& path);

// The short name of that entry of the folder; nothing where the volume keeps none, or none that has
// a place in the code page.
[[nodiscard]] std::optional<std::string> shortNameIn(const std::string& folder,
                                                     const std::wstring& name);

} // namespace tarnwick
