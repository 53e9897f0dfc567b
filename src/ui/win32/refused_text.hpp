#pragma once

#include <windows.h>

namespace tarnwick {

// Tells the user, by a sound and beside the field where the system has such a hint, that what was
// typed or pasted is not taken: a character of it has no place in the system's code page.
void tellRefused(HWND field) noexcept;

} // namespace tarnwick
