#include "processing/pause.hpp"

namespace tarnwick {

void pause(const Clock& clock, PendingEvents& events, double seconds, const StopRequest& stop) {
    const double end = clock.steadySeconds() + seconds;
    events.letRun();
    for (double now = clock.steadySeconds(); now < end && !stop.closed;
         now = clock.steadySeconds()) {
        events.waitForEvent(end - now);
        events.letRun();
    }
}

} // namespace tarnwick
