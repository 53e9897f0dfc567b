#include "report/joined_runs.hpp"

#include "report/report_words.hpp"
#include "report/run_report.hpp"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <map>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

namespace tarnwick {
namespace {

// Since 1970, of a date and time as in RunTotals.
std::optional<double> secondsOf(std::string_view time) {
    if (!isDateAndTime(time)) {
        return std::nullopt;
    }
    const auto number = [&](std::size_t place, std::size_t digits) {
        int result = 0;
        for (const char digit : time.substr(place, digits)) {
            result = 10 * result + (digit - '0');
        }
        return result;
    };
    using namespace std::chrono;
    const sys_days day = year(number(0, 4)) / number(5, 2) / number(8, 2);
    return duration<double>(day.time_since_epoch()).count() + 3600.0 * number(11, 2) +
           60.0 * number(14, 2) + number(17, 2);
}

void add(RunTotals& sum, const RunTotals& totals) {
    sum.made += totals.made;
    sum.upToDate += totals.upToDate;
    sum.failed += totals.failed;
    sum.notRun += totals.notRun;
    sum.recordsWithFindings += totals.recordsWithFindings;
    sum.messages += totals.messages;
}

// How the logs of as many shares stand, each by its last run.
class LatestRuns {
  public:
    void take(const EndedRun& ended, std::uint32_t shares) {
        if (std::exchange(shares_, shares) != shares) {
            ofLogs_.clear();
        }
        Latest& latest = ofLogs_[ended.log];
        const RunTotals last = std::exchange(latest.totals, ended.totals);
        if (ended.findingsAsBefore) {
            latest.totals.recordsWithFindings = last.recordsWithFindings;
            latest.totals.messages = last.messages;
        } else {
            latest.counted = true;
        }
    }

    // Adds all to `sum`; what none has counted is as in `before`.
    [[nodiscard]] RunTotals sum(RunTotals sum, const RunTotals& before) const {
        bool counted = false;
        for (const auto& [log, latest] : ofLogs_) {
            add(sum, latest.totals);
            counted = counted || latest.counted;
        }
        if (!counted) {
            sum.recordsWithFindings = before.recordsWithFindings;
            sum.messages = before.messages;
        }
        return sum;
    }

  private:
    struct Latest {
        RunTotals totals;
        bool counted = false; // the findings, by this run or one before
    };

    std::uint32_t shares_ = 0;
    std::map<std::uint32_t, Latest> ofLogs_;
};

} // namespace

bool JoinedRun::begins(std::uint32_t log, std::uint32_t shares, std::string_view begun) {
    const auto now = secondsOf(begun);
    const bool paused = now && lastBegun_ && *now - *lastBegun_ > longestPause;
    const bool begins = logs_.empty() || shares != shares_ || logs_.contains(log) || paused;
    if (begins) {
        logs_.clear();
    }
    shares_ = shares;
    lastBegun_ = now;
    logs_.insert(log);
    return begins;
}

std::vector<RunTotals> runsOf(std::vector<EndedRun> ended, std::span<const MessageSource> sources) {
    if (sources.size() > 1) { // one log has them in their order, whatever clocks say
        std::ranges::stable_sort(ended, {}, [](const EndedRun& run) {
            return std::tuple(std::string_view(run.totals.begun), run.run);
        });
    }
    std::vector<RunTotals> runs;
    JoinedRun joined;
    LatestRuns latest;
    RunTotals before; // the run together before
    for (const EndedRun& each : ended) {
        const std::uint32_t shares = sources[each.log].shares;
        if (joined.begins(each.log, shares, each.totals.begun)) {
            before = runs.empty() ? RunTotals() : runs.back();
            runs.push_back({.begun = each.totals.begun});
        }
        latest.take(each, shares);
        RunTotals& sum = runs.back();
        sum = latest.sum(
            {.begun = std::move(sum.begun), .seconds = std::max(sum.seconds, each.totals.seconds)},
            before);
    }
    if (runs.size() > RunReport::mostRuns) {
        runs.erase(runs.begin(), runs.end() - RunReport::mostRuns);
    }
    return runs;
}

} // namespace tarnwick
