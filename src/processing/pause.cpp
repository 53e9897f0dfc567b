#include "processing/pause.hpp"

namespace tarnwick {

void pause(const Clock& clock, PendingEvents& events, double seconds, const StopRequest& stop) {
    const double end = clock.steadySeconds() + seconds;
    events.letRun();
    while (!stop.closed) {
        const double left = end - clock.steadySeconds();
        if (left <= 0) {
            return;
        }
        events.waitForEvent(left);
        events.letRun();
    }
}

} // namespace tarnwick
