#pragma once

#include <windows.h>

#include <bit>

namespace tarnwick {

// The function of that name in one of the system's libraries. For libraries that Windows looks for
// beside the program first: whoever may put files there would have his own run. This one is loaded
// from the system's folder alone, and stays loaded. Null where the system lacks it.
template <typename Function>
[[nodiscard]] Function* systemFunction(const wchar_t* library, const char* name) noexcept {
    const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    // The type that the system gives has nothing to do with the function's own.
    return module == nullptr ? nullptr : std::bit_cast<Function*>(GetProcAddress(module, name));
}

} // namespace tarnwick
