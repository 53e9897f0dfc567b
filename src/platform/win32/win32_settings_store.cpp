#include "platform/win32/win32_settings_store.hpp"

#include "platform/win32/errors.hpp"

#include <windows.h>

#include <memory>
#include <type_traits>

namespace tarnwick {
namespace {

struct KeyCloser {
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using RegistryKey = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

std::string keyPath(std::string_view application, std::string_view section) {
    return R"(Software\)" + std::string(application) + '\\' + std::string(section);
}

} // namespace

std::string Win32SettingsStore::read(std::string_view application, std::string_view section,
                                     std::string_view key, std::string_view fallback) const {
    const auto path = keyPath(application, section);
    const std::string name(key);
    std::string value;
    // As the value may change between asking for its size and its bytes, until it fits.
    for (DWORD size = 256;;) {
        value.resize(size);
        const auto result = RegGetValueA(HKEY_CURRENT_USER, path.c_str(), name.c_str(),
                                         RRF_RT_REG_SZ, nullptr, value.data(), &size);
        if (result == ERROR_SUCCESS) {
            value.resize(size == 0 ? 0 : size - 1); // less the NUL that ends it
            return value;
        }
        // A name that is too long is told the same way as a value: only one of them asks for more.
        if (result != ERROR_MORE_DATA || size <= value.size()) {
            return std::string(fallback);
        }
    }
}

void Win32SettingsStore::write(std::string_view application, std::string_view section,
                               std::string_view key, std::string_view value) {
    HKEY opened = nullptr;
    auto result =
        RegCreateKeyExA(HKEY_CURRENT_USER, keyPath(application, section).c_str(), 0, nullptr,
                        REG_OPTION_NON_VOLATILE, KEY_SET_VALUE, nullptr, &opened, nullptr);
    const RegistryKey owner(opened);
    if (result == ERROR_SUCCESS) {
        const std::string bytes(value); // for the NUL behind it
        result = RegSetValueExA(opened, std::string(key).c_str(), 0, REG_SZ,
                                reinterpret_cast<const BYTE*>(bytes.c_str()),
                                static_cast<DWORD>(bytes.size() + 1));
    }
    if (result != ERROR_SUCCESS) {
        raiseSystemError(ErrorNumber::PathFileAccess, static_cast<DWORD>(result));
    }
}

} // namespace tarnwick
