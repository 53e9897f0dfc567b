#pragma once

#include "platform/clock.hpp"

namespace tarnwick {

// What a run has been asked to do before its end.
struct StopRequest {
    bool cancelled = false; // the user wants no more; looked at between the pauses
    bool closed = false;    // the window is gone: nobody waits any longer

    void close() noexcept { cancelled = closed = true; }
};

// Lets `seconds` go by, and the window's events run as they come; between them the processor
// rests. Midnight and a clock that is set make it neither longer nor shorter. It ends at once where
// the window is gone.
void pause(const Clock& clock, PendingEvents& events, double seconds, const StopRequest& stop);

} // namespace tarnwick
