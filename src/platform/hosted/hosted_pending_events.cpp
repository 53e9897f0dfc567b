#include "platform/hosted/hosted_pending_events.hpp"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <utility>

namespace tarnwick {

void HostedPendingEvents::post(std::function<void()> event) {
    {
        const std::scoped_lock lock(mutex_);
        events_.push_back(std::move(event));
    }
    posted_.notify_one();
}

void HostedPendingEvents::letRun() {
    // Those that wait now and no later ones: a handler that posts itself again must not keep us.
    std::size_t count = 0;
    {
        const std::scoped_lock lock(mutex_);
        count = events_.size();
    }
    for (; count > 0; --count) {
        const auto event = takeFirst();
        if (!event) {
            return; // a handler let the rest run
        }
        event();
    }
}

void HostedPendingEvents::waitForEvent(double seconds) {
    constexpr double aDay = 86400;
    const std::chrono::duration<double> length(std::clamp(seconds, 0.0, aDay));
    std::unique_lock lock(mutex_);
    posted_.wait_for(lock, length, [this] { return !events_.empty(); });
}

std::function<void()> HostedPendingEvents::takeFirst() {
    const std::scoped_lock lock(mutex_);
    if (events_.empty()) {
        return {};
    }
    auto event = std::move(events_.front());
    events_.pop_front();
    return event;
}

} // namespace tarnwick
