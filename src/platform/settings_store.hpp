#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

// Texts that outlive the program, kept per user by application, section and key. Names match
// without regard to case; values are kept byte for byte.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    // The stored text, or `fallback` when none is stored or the store cannot be read.
    // Never raises: a program must start without its store.
    [[nodiscard]] virtual std::string read(std::string_view application, std::string_view section,
                                           std::string_view key,
                                           std::string_view fallback) const = 0;

    // Stores `value`; an older one is replaced. Raises 75 when the store cannot be written, which
    // leaves the older value.
    virtual void write(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view value) = 0;
};

} // namespace tarnwick
