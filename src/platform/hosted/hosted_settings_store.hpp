#pragma once

#include "platform/settings_store.hpp"

#include <string>

namespace tarnwick {

// The settings of one user in one file of this machine, one a line:
// "application\section\key=value", with "%XX" for the bytes that would be taken for something
// else. The file is made by the first write, its folder is not.
class HostedSettingsStore : public SettingsStore {
  public:
    // `hostFile` is a path of this machine.
    explicit HostedSettingsStore(std::string hostFile);

    [[nodiscard]] std::string read(std::string_view application, std::string_view section,
                                   std::string_view key, std::string_view fallback) const override;
    void write(std::string_view application, std::string_view section, std::string_view key,
               std::string_view value) override;

  private:
    std::string hostFile_;
};

} // namespace tarnwick
