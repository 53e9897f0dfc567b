#pragma once

#include "report/kept_findings.hpp"
#include "runner/run_totals.hpp"

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <vector>

namespace tarnwick {

// Tells which runs of several logs, in the order in which they began, are one run together. Runs
// belong together when each is a share of as many shares; when a log comes a second time, or
// nothing has begun for half a day, another run together begins. Half a day, because shares that
// one machine runs one after another follow each other sooner than that, and those of the next
// night later, even if some were left out the night before.
class JoinedRun {
  public:
    static constexpr double longestPause = 12.0 * 60 * 60; // seconds between two beginnings

    // Whether that run of a log begins another one together. `shares` as in MessageSource; `begun`
    // as in RunTotals: by any other text no pause is seen.
    bool begins(std::uint32_t log, std::uint32_t shares, std::string_view begun);

    // The logs whose runs are in the one that was begun last.
    [[nodiscard]] const std::set<std::uint32_t>& logs() const noexcept { return logs_; }

  private:
    std::uint32_t shares_ = 0;
    std::optional<double> lastBegun_; // in seconds
    std::set<std::uint32_t> logs_;
};

// What one run of a log came to.
struct EndedRun {
    std::uint32_t log = 0; // of the sources
    std::uint32_t run = 0; // its number there
    RunTotals totals;
    bool findingsAsBefore = false; // as in TotalsLine
};

// How everything stood at the end of each run together, the last RunReport::mostRuns, oldest first:
// shares that were not run again count as they were. The findings of a run with nothing to do are
// those of that log's run before; where it has none, those of the run together before, for then
// other logs tell of the same records.
[[nodiscard]] std::vector<RunTotals> runsOf(std::vector<EndedRun> ended,
                                            std::span<const MessageSource> sources);

} // namespace tarnwick
