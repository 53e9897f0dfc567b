#pragma once

#include "platform/clock.hpp"

namespace tarnwick {

class HostedClock : public Clock {
  public:
    [[nodiscard]] double steadySeconds() const override;
    [[nodiscard]] std::string longDate() const override;
    [[nodiscard]] std::string longTime() const override;
};

} // namespace tarnwick
