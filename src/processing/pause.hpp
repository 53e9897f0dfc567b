#pragma once

#include "platform/clock.hpp"

namespace tarnwick {

// What a run has been asked to do before its end.
struct StopRequest {
    bool cancelled = false; // start no further tool; a batch that is already written is still
                            // started, and the pauses last their time
    bool closed = false;    // the window is closed: end every pause at once as well

    void close() noexcept { cancelled = closed = true; }
};

// Lets `seconds` go by, and the window's events run as they come; between them the processor
// rests. It ends at once where the window is gone.
// By the steady clock, not by the time of day: that begins anew at midnight and may be set, and a
// pause must then be neither longer nor shorter.
void pause(const Clock& clock, PendingEvents& events, double seconds, const StopRequest& stop);

} // namespace tarnwick
