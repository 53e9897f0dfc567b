#include "report/joined_runs.hpp"

#include "report/run_report.hpp"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>
#include <utility>

namespace tarnwick {
namespace {

void add(RunTotals& sum, const RunTotals& totals) {
    sum.made += totals.made;
    sum.upToDate += totals.upToDate;
    sum.failed += totals.failed;
    sum.notRun += totals.notRun;
    sum.recordsWithFindings += totals.recordsWithFindings;
    sum.messages += totals.messages;
}

} // namespace

bool JoinedRun::begins(std::uint32_t log, std::uint32_t shares) {
    const bool begins = logs_.empty() || shares != shares_ || logs_.contains(log);
    if (begins) {
        logs_.clear();
    }
    shares_ = shares;
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
    std::map<std::uint32_t, RunTotals> latest; // of each log of as many shares
    std::uint32_t sharesBefore = 0;
    for (const auto& [log, run, totals] : ended) {
        const std::uint32_t shares = sources[log].shares;
        if (joined.begins(log, shares)) {
            runs.push_back({.begun = totals.begun});
        }
        if (std::exchange(sharesBefore, shares) != shares) {
            latest.clear();
        }
        latest[log] = totals;
        RunTotals& sum = runs.back();
        sum = {.begun = std::move(sum.begun), .seconds = std::max(sum.seconds, totals.seconds)};
        for (const auto& [of, each] : latest) {
            add(sum, each);
        }
    }
    if (runs.size() > RunReport::mostRuns) {
        runs.erase(runs.begin(), runs.end() - RunReport::mostRuns);
    }
    return runs;
}

} // namespace tarnwick
