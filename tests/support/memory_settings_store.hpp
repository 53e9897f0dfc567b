#pragma once

#include "platform/case_folding.hpp"
#include "platform/run_time_error.hpp"
#include "platform/settings_store.hpp"

#include <map>
#include <string>
#include <tuple>

namespace tarnwick {

// Settings that last as long as this object.
class MemorySettingsStore : public SettingsStore {
  public:
    [[nodiscard]] std::string read(std::string_view application, std::string_view section,
                                   std::string_view key, std::string_view fallback) const override {
        const auto found = values_.find(nameOf(application, section, key));
        return found == values_.end() || unreadable ? std::string(fallback) : found->second;
    }
    void write(std::string_view application, std::string_view section, std::string_view key,
               std::string_view value) override {
        if (unwritable) {
            throw RunTimeError(ErrorNumber::PathFileAccess);
        }
        values_.insert_or_assign(nameOf(application, section, key), std::string(value));
    }

    bool unreadable = false; // every read gives its fallback
    bool unwritable = false; // every write raises 75

  private:
    using Name = std::tuple<std::string, std::string, std::string>; // upper-cased

    static Name nameOf(std::string_view application, std::string_view section,
                       std::string_view key) {
        return {upperCase(application), upperCase(section), upperCase(key)};
    }

    std::map<Name, std::string> values_;
};

} // namespace tarnwick
