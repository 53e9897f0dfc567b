#pragma once

#include "platform/run_time_error.hpp"

namespace tarnwick {

// The number that stands for an errno value.
[[nodiscard]] ErrorNumber errorNumber(int systemError) noexcept;

// Raises the error that stands for an errno value, which goes along as lastDllError.
[[noreturn]] void raiseSystemError(int systemError);

} // namespace tarnwick
