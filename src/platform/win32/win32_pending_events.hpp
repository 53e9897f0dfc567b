#pragma once

#include "platform/clock.hpp"

#include <windows.h>

namespace tarnwick {

// Whoever has windows of its own (the view) and wants to see a message before it is dispatched, as
// a dialog does for its keys.
class MessageFilter {
  public:
    virtual ~MessageFilter() = default;
    // Whether it has dealt with the message, which is then not dispatched.
    virtual bool handles(MSG& message) = 0;
};

// The messages of this thread's windows.
class Win32PendingEvents : public PendingEvents {
  public:
    // Refers to `filter`, which must outlive it; none when there is none.
    explicit Win32PendingEvents(MessageFilter* filter = nullptr) noexcept : filter_(filter) {}

    // Leaves a request to quit in the queue, for the program's own loop.
    void letRun() override;
    void waitForEvent(double seconds) override;

  private:
    MessageFilter* filter_;
};

} // namespace tarnwick
