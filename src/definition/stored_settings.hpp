#pragma once

#include "platform/settings_store.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// The few settings that outlive an INI file, in the per-user settings store.
enum class StoredSetting { INIFileName, MPExecutable, CNSExecutable };

[[nodiscard]] std::string readStored(const SettingsStore& store, StoredSetting setting,
                                     std::string_view fallback);

// A path that is shown by numbers (see left_out.hpp) stands for one that has no name here: what is
// stored stays, for it is still right elsewhere. Raises what SettingsStore::write raises.
void store(SettingsStore& store, StoredSetting setting, std::string_view value);

} // namespace tarnwick
