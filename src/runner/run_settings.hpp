#pragma once

#include "runner/message_patterns.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tarnwick {

// How a run goes about its records.
struct RunSettings {
    std::size_t jobs = 1;                 // records at once
    std::vector<std::int64_t> accept{0};  // the statuses of a tool that has done its work
    std::optional<double> timeLimit;      // seconds, of one call
    std::size_t retries = 0;              // more attempts, when a record fails
    std::optional<std::size_t> stopAfter; // so many failures; nothing more is begun then
    bool keepPartial = false;             // what a failed call leaves of its products stays
    // How long the system waits after an order to end before it ends everything, in seconds;
    // nothing: not at all.
    std::optional<double> notice{};
    bool all = false; // also what is up to date
    MessagePatterns messages{};

    bool operator==(const RunSettings&) const = default;
};

} // namespace tarnwick
