#pragma once

#include "report/kept_findings.hpp"
#include "runner/run_totals.hpp"

#include <cstdint>
#include <set>
#include <span>
#include <vector>

namespace tarnwick {

// Runs of several logs, in the order in which they began: which of them are one run together.
// Shares of as many are, until one of them is run again.
class JoinedRun {
  public:
    // Whether that run of a log begins another one together. `shares` as in MessageSource.
    bool begins(std::uint32_t log, std::uint32_t shares);

    // The logs whose runs are in the one that was begun last.
    [[nodiscard]] const std::set<std::uint32_t>& logs() const noexcept { return logs_; }

  private:
    std::uint32_t shares_ = 0;
    std::set<std::uint32_t> logs_;
};

// What one run of a log came to.
struct EndedRun {
    std::uint32_t log = 0; // of the sources
    std::uint32_t run = 0; // its number there
    RunTotals totals;
};

// How everything stood at the end of each run together, the last RunReport::mostRuns, oldest first:
// shares that were not run again count as they were.
[[nodiscard]] std::vector<RunTotals> runsOf(std::vector<EndedRun> ended,
                                            std::span<const MessageSource> sources);

} // namespace tarnwick
