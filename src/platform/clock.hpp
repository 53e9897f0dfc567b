#pragma once

#include <string>

namespace tarnwick {

class SteadyClock {
  public:
    virtual ~SteadyClock() = default;

    // Seconds that only ever grow, from an arbitrary start; unmoved by midnight and by a clock
    // that is set.
    [[nodiscard]] virtual double steadySeconds() const = 0;
};

class Clock : public SteadyClock {
  public:
    // Today's date and the time of day in the user's long formats.
    [[nodiscard]] virtual std::string longDate() const = 0;
    [[nodiscard]] virtual std::string longTime() const = 0;
};

// The window events that wait for this thread.
class PendingEvents {
  public:
    virtual ~PendingEvents() = default;

    // Lets every event that waits now run its handlers, and returns; those that the handlers
    // themselves add may run as well. Handlers may call this again.
    virtual void letRun() = 0;

    // Sleeps until an event waits or `seconds` are over, whichever comes first, and runs none.
    virtual void waitForEvent(double seconds) = 0;
};

} // namespace tarnwick
