#pragma once

#include "definition/batch_definition.hpp"
#include "platform/files.hpp"
#include "platform/left_out.hpp"
#include "platform/process.hpp"
#include "platform/settings_store.hpp"

namespace tarnwick {

// The definition as the program starts with it, before any INI file is read: the program's and the
// temporary folder, the tools (one beside the program wins over a stored location), the last INI
// file, and the default settings. Raises nothing but what Files::currentFolder raises.
[[nodiscard]] BatchDefinition definitionAtStartUp(const Process& process, const Files& files,
                                                  const SettingsStore& store);

// The paths that the program begins with (its own folder, the temporary one, what is stored) whose
// names have no place in the system's code page: others are used in their places, and the user is
// to be told.
[[nodiscard]] LeftOut namelessAtStartUp(const Process& process, const SettingsStore& store);

} // namespace tarnwick
