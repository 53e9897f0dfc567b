#pragma once

#include "platform/clock.hpp"

#include <functional>
#include <string>

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

// Events that wait for nothing: waiting moves the clock on at once.
class FakePendingEvents : public PendingEvents {
  public:
    // Refers to `clock`, which must outlive it.
    explicit FakePendingEvents(FakeClock& clock) : clock_(clock) {}

    void letRun() override {
        ++timesRun;
        if (handler) {
            handler();
        }
    }
    void waitForEvent(double seconds) override {
        secondsWaited += seconds;
        clock_.advance(seconds);
    }

    int timesRun = 0;
    double secondsWaited = 0;
    std::function<void()> handler; // run by every letRun

  private:
    FakeClock& clock_;
};

} // namespace tarnwick
