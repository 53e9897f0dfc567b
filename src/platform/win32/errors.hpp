#pragma once

#include "platform/run_time_error.hpp"
#include "platform/win32/handle.hpp"

#include <windows.h>

#include <string>

namespace tarnwick {

// The number that stands for a code of GetLastError.
[[nodiscard]] ErrorNumber errorNumber(DWORD systemError) noexcept;

// Raises the error that stands for the code, which goes along as lastDllError.
[[noreturn]] void raiseSystemError(DWORD systemError);
// The same with a number of the caller's own.
[[noreturn]] void raiseSystemError(ErrorNumber number, DWORD systemError);

// The same for a call that was given `path`: where what is not found lies on a drive that does not
// exist, that is what is raised.
[[noreturn]] void raiseSystemError(DWORD systemError, const std::string& path);

// What the system has just given; raises its error where that is no handle.
[[nodiscard]] Handle required(HANDLE given);

// Raises the system's error where a call has just failed.
void requireDone(BOOL done);

} // namespace tarnwick
