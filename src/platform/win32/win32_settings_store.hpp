#pragma once

#include "platform/settings_store.hpp"

namespace tarnwick {

// The registry: the value `key` of HKEY_CURRENT_USER\Software\<application>\<section>.
class Win32SettingsStore : public SettingsStore {
  public:
    [[nodiscard]] std::string read(std::string_view application, std::string_view section,
                                   std::string_view key, std::string_view fallback) const override;
    void write(std::string_view application, std::string_view section, std::string_view key,
               std::string_view value) override;
};

} // namespace tarnwick
