#pragma once

#include "platform/interruptions.hpp"
#include "runner/job.hpp"
#include "runner/plan.hpp"
#include "runner/record_outcome.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// What a run came to.
struct RunSummary {
    std::size_t made = 0;
    std::size_t failed = 0; // those that were refused are among them
    std::size_t upToDate = 0;
    std::size_t notRun = 0; // because the run was ended before; interrupted ones are among them
    double seconds = 0;
    std::optional<Interruption> interruption; // the last, if there was any
    std::string logFault;                     // the run was ended because its log cannot be written

    bool operator==(const RunSummary&) const = default;
};

// Hears of a run, on the thread that owns it, in this order.
class RunObserver {
  public:
    virtual ~RunObserver() = default;
    virtual void planned(const Job& /*job*/, const Products& /*products*/, const Plan& /*plan*/) {}
    virtual void started(std::string_view /*record*/) {}
    virtual void finished(const RecordOutcome& /*outcome*/) {}
    // Nothing more is begun; with `now` running tools are ended too.
    virtual void ending(bool /*now*/, Interruption /*why*/) {}
    virtual void stopped() {} // after as many failures as the user allows
    virtual void idle() {}    // nothing has happened for a moment
    virtual void ended(const RunSummary& /*summary*/) {}
};

} // namespace tarnwick
