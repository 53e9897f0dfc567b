#pragma once

#include <functional>

namespace tarnwick {

// How the user or the system asks this process to end.
enum class Interruption {
    Asked,   // Ctrl+C
    Ordered, // to end now: a request of the system, a closed console, a logoff
};

class Interruptions {
  public:
    virtual ~Interruptions() = default;

    // From now on `heard` is called, on a thread of its own, for each interruption, in place of
    // what the system does else. On Windows the process ends a few seconds after an order, or as
    // soon as this object is gone. Called once, before any other thread is started.
    virtual void listen(std::function<void(Interruption)> heard) = 0;
};

} // namespace tarnwick
