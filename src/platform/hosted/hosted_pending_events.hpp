#pragma once

#include "platform/clock.hpp"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace tarnwick {

// Events without windows: whoever wants something to happen while a pause or a loop lets events
// run posts it here.
class HostedPendingEvents : public PendingEvents {
  public:
    // Lets `event` wait; any thread may post.
    void post(std::function<void()> event);

    void letRun() override;
    void waitForEvent(double seconds) override;

  private:
    [[nodiscard]] std::function<void()> takeFirst();

    std::mutex mutex_;
    std::condition_variable posted_;
    std::deque<std::function<void()>> events_;
};

} // namespace tarnwick
