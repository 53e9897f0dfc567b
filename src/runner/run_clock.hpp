#pragma once

#include "platform/clock.hpp"

#include <string>

namespace tarnwick {

// What a run asks of the time.
class RunClock : public SteadyClock {
  public:
    // The date and time of day, as "2026-11-22T01:02:03Z", for people.
    [[nodiscard]] virtual std::string dateAndTime() const = 0;
};

class SystemRunClock final : public RunClock {
  public:
    [[nodiscard]] double steadySeconds() const override;
    [[nodiscard]] std::string dateAndTime() const override;
};

} // namespace tarnwick
