#include "platform/hosted/hosted_settings_store.hpp"

#include "platform/case_folding.hpp"
#include "platform/run_time_error.hpp"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <optional>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

std::string escaped(std::string_view text) {
    std::string result;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20 || std::string_view("%=\\").find(character) != std::string_view::npos) {
            result.append("%").append(1, hexDigits[code >> 4U]).append(1, hexDigits[code & 0xFU]);
        } else {
            result.append(1, character);
        }
    }
    return result;
}

std::string unescaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto high = text.size() < 3 ? std::string_view::npos : hexDigits.find(text[1]);
        const auto low = text.size() < 3 ? std::string_view::npos : hexDigits.find(text[2]);
        if (text[0] == '%' && high != std::string_view::npos && low != std::string_view::npos) {
            result.append(1, static_cast<char>(high << 4U | low));
            text.remove_prefix(3);
        } else {
            result.append(1, text[0]);
            text.remove_prefix(1);
        }
    }
    return result;
}

std::string nameOf(std::string_view application, std::string_view section, std::string_view key) {
    return upperCase(escaped(application) + '\\' + escaped(section) + '\\' + escaped(key));
}

// By name; values still escaped.
using Settings = std::map<std::string, std::string>;

// Nothing when there is a store that cannot be read.
std::optional<Settings> load(const std::string& hostFile) {
    Settings settings;
    std::ifstream file(hostFile, std::ios::binary);
    std::string line;
    while (std::getline(file, line)) {
        if (const auto end = line.find('='); end != std::string::npos) {
            settings[upperCase(line.substr(0, end))] = line.substr(end + 1);
        }
    }
    const bool closedToUs = !file.is_open() && ::access(hostFile.c_str(), F_OK) == 0;
    return file.bad() || closedToUs ? std::nullopt : std::optional(std::move(settings));
}

bool save(const std::string& hostFile, const Settings& settings) {
    const auto beside = hostFile + ".new";
    std::ofstream file(beside, std::ios::binary | std::ios::trunc);
    for (const auto& [name, value] : settings) {
        file << name << '=' << value << '\n';
    }
    file.close();
    if (!file) {
        static_cast<void>(std::remove(beside.c_str()));
        return false;
    }
    return std::rename(beside.c_str(), hostFile.c_str()) == 0;
}

} // namespace

HostedSettingsStore::HostedSettingsStore(std::string hostFile) : hostFile_(std::move(hostFile)) {}

std::string HostedSettingsStore::read(std::string_view application, std::string_view section,
                                      std::string_view key, std::string_view fallback) const {
    if (const auto settings = load(hostFile_)) {
        const auto found = settings->find(nameOf(application, section, key));
        if (found != settings->end()) {
            return unescaped(found->second);
        }
    }
    return std::string(fallback);
}

void HostedSettingsStore::write(std::string_view application, std::string_view section,
                                std::string_view key, std::string_view value) {
    auto settings = load(hostFile_);
    if (settings) {
        (*settings)[nameOf(application, section, key)] = escaped(value);
    }
    if (!settings || !save(hostFile_, *settings)) {
        throw RunTimeError(ErrorNumber::PathFileAccess);
    }
}

} // namespace tarnwick
