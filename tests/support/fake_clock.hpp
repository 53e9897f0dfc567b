#pragma once

#include "platform/clock.hpp"

#include <deque>
#include <functional>
#include <string>
#include <utility>

namespace tarnwick {

// A clock that a test sets; it goes only when told to.
class FakeClock : public Clock {
  public:
    [[nodiscard]] double steadySeconds() const override { return steady; }
    [[nodiscard]] std::string longDate() const override { return date; }
    [[nodiscard]] std::string longTime() const override { return time; }

    // Lets that much time go by.
    void advance(double seconds) { steady += seconds; }

    double steady = 1000;
    std::string date = "Monday, 2 March 2026";
    std::string time = "10:00:00";
};

// Events of a test's own. Waiting moves the clock on at once, unless an event waits.
class FakePendingEvents : public PendingEvents {
  public:
    // Refers to `clock`, which must outlive it.
    explicit FakePendingEvents(FakeClock& clock) : clock_(clock) {}

    void letRun() override {
        ++timesRun;
        while (!events_.empty()) {
            const std::function<void()> event = std::exchange(events_.front(), nullptr);
            events_.pop_front();
            event();
        }
        if (handler) {
            handler();
        }
    }
    void waitForEvent(double seconds) override {
        if (events_.empty() && seconds > 0) {
            secondsWaited += seconds;
            clock_.advance(seconds);
        }
    }

    // Lets it wait for the next letRun.
    void post(std::function<void()> event) { events_.push_back(std::move(event)); }

    int timesRun = 0;
    double secondsWaited = 0;
    std::function<void()> handler; // run by every letRun

  private:
    FakeClock& clock_;
    std::deque<std::function<void()>> events_;
};

} // namespace tarnwick
