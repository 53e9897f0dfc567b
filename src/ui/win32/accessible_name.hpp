#pragma once

#include <windows.h>

#include <string>

namespace tarnwick {

// What a screen reader calls the window instead of the name that it would find itself. Where the
// system has no such service, nothing happens.
void setAccessibleName(HWND window, const std::string& name) noexcept;

} // namespace tarnwick
