#pragma once

#include "common/mod_main.hpp"

#include <string_view>

namespace tarnwick {

// The error that is being handled, as the error report shows it. What is no RunTimeError becomes
// one: out of memory is number 7, anything else 51. Call it in a catch block only.
[[nodiscard]] ErrorRecord currentError();

// Reports the error that is being handled. When not even that can be done, it is given up: an error
// goes no further than the procedure that traps it.
void reportCurrentError(Desktop& desktop, std::string_view caller,
                        std::string_view procedure) noexcept;

// Runs the body of a procedure that traps its errors: an error skips the rest of the body, is
// reported, and goes no further. Nothing else in the window's program reports an error.
// Gives whether the body came to its end without an error.
template <typename Body>
bool trap(Desktop& desktop, std::string_view caller, std::string_view procedure, Body&& body) {
    try {
        static_cast<Body&&>(body)();
        return true;
    } catch (...) {
        reportCurrentError(desktop, caller, procedure);
        return false;
    }
}

} // namespace tarnwick
