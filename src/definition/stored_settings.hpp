#pragma once

#include "platform/settings_store.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// The few settings that outlive an INI file, in the per-user settings store.
enum class StoredSetting { INIFileName, MPExecutable, CNSExecutable };

[[nodiscard]] std::string readStored(const SettingsStore& store, StoredSetting setting,
                                     std::string_view fallback);

// Raises what SettingsStore::write raises.
void store(SettingsStore& store, StoredSetting setting, std::string_view value);

} // namespace tarnwick
