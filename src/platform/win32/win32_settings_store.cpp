#include "platform/win32/win32_settings_store.hpp"

#include "platform/win32/errors.hpp"
#include "platform/win32/system_text.hpp"

#include <windows.h>

#include <memory>
#include <type_traits>

namespace tarnwick {
namespace {

struct KeyCloser {
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using RegistryKey = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

std::wstring keyPath(std::string_view application, std::string_view section) {
    return LR"(Software\)" + toWide(application) + L'\\' + toWide(section);
}

} // namespace

std::string Win32SettingsStore::read(std::string_view application, std::string_view section,
                                     std::string_view key, std::string_view fallback) const {
    const auto path = keyPath(application, section);
    const auto name = toWide(key);
    std::wstring value;
    // As the value may change between asking for its size and its text, until it fits.
    for (DWORD size = 256 * sizeof(wchar_t);;) { // in bytes
        value.resize(size / sizeof(wchar_t));
        const auto result = RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name.c_str(),
                                         RRF_RT_REG_SZ, nullptr, value.data(), &size);
        if (result == ERROR_SUCCESS) {
            // Less the NUL that ends it; whoever wrote the value may have written half a one.
            value.resize(size < sizeof(wchar_t) ? 0 : size / sizeof(wchar_t) - 1);
            return pathText(value);
        }
        // A name that is too long is told the same way as a value: only one of them asks for more.
        if (result != ERROR_MORE_DATA || size <= value.size() * sizeof(wchar_t)) {
            return std::string(fallback);
        }
    }
}

void Win32SettingsStore::write(std::string_view application, std::string_view section,
                               std::string_view key, std::string_view value) {
    HKEY opened = nullptr;
    auto result =
        RegCreateKeyExW(HKEY_CURRENT_USER, keyPath(application, section).c_str(), 0, nullptr,
                        REG_OPTION_NON_VOLATILE, KEY_SET_VALUE, nullptr, &opened, nullptr);
    const RegistryKey owner(opened);
    if (result == ERROR_SUCCESS) {
        const auto text = toWide(value);
        const auto bytes = (text.size() + 1) * sizeof(wchar_t); // with the NUL behind it
        result =
            RegSetValueExW(opened, toWide(key).c_str(), 0, REG_SZ,
                           reinterpret_cast<const BYTE*>(text.c_str()), static_cast<DWORD>(bytes));
    }
    if (result != ERROR_SUCCESS) {
        raiseSystemError(ErrorNumber::PathFileAccess, static_cast<DWORD>(result));
    }
}

} // namespace tarnwick
