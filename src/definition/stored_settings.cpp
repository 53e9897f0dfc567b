#include "definition/stored_settings.hpp"

#include "platform/left_out.hpp"

namespace tarnwick {
namespace {

constexpr std::string_view application = "Corvane";
constexpr std::string_view section = "TARNWICK";

std::string_view keyOf(StoredSetting setting) {
    switch (setting) {
    case StoredSetting::INIFileName:
        return "INI File Name";
    case StoredSetting::MPExecutable:
        return "MP Executable";
    case StoredSetting::CNSExecutable:
        break;
    }
    return "CNS Executable";
}

} // namespace

std::string readStored(const SettingsStore& store, StoredSetting setting,
                       std::string_view fallback) {
    return store.read(application, section, keyOf(setting), fallback);
}

void store(SettingsStore& store, StoredSetting setting, std::string_view value) {
    if (!holdsShownNumber(value)) {
        store.write(application, section, keyOf(setting), value);
    }
}

} // namespace tarnwick
