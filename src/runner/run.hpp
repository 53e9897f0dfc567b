#pragma once

#include "platform/interruptions.hpp"
#include "runner/inbox.hpp"
#include "runner/message_log.hpp"
#include "runner/record_run.hpp"
#include "runner/run_clock.hpp"
#include "runner/run_log.hpp"
#include "runner/run_observer.hpp"

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace tarnwick {

struct RecordStarted {
    std::uint32_t record = 0; // of Job::records
};

// What the thread that owns a run hears of: from the slots, and from the user.
using RunMessage = std::variant<RecordStarted, RecordOutcome, Interruption>;

// What one run is made of. All that it refers to outlives it.
struct RunParts {
    const Job& job;
    const Products& products;
    const Plan& plan;
    const RunSettings& settings;
    const WrittenFiles& written;
    const RecordServices& services;
    const RunClock& clock;
    std::uint32_t run;     // its number in the log
    std::string temporary; // the beginning of the path of a slot's own file (see RecordRun)
    MessageLog* messages = nullptr; // keeps what the tools say
};

// Runs what is planned, settings.jobs records at once, writes each outcome into the log and tells
// the observers. Interruptions come through `inbox`: a first one by the user lets the running tools
// end by themselves; so does a first order of the system, but only for half of the notice that the
// settings promise. A second one ends them at once, and so does an order without notice. Raises
// only for want of memory or threads.
[[nodiscard]] RunSummary runRecords(const RunParts& parts, Inbox<RunMessage>& inbox, RunLog& log,
                                    std::span<RunObserver* const> observers);

} // namespace tarnwick
