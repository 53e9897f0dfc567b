#pragma once

#include "platform/file_stamps.hpp"
#include "runner/job.hpp"
#include "runner/judged_messages.hpp"
#include "runner/products.hpp"
#include "runner/state_logs.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarnwick {

// Why a record must run.
struct Reason {
    enum class Kind : std::uint8_t {
        New,
        Interrupted, // it was in work when its last run ended
        Failed,
        OtherCommand,
        ConfigurationChanged,
        AliasesChanged,
        CnsChanged,
        MpChanged,
        RecordChanged,
        ProductRemoved,
        ProductChanged,
        Asked, // for all
        OutputsUnknown,
        MessagesUnknown,     // and the user wants to know that certain ones are not among them
        MessagesPartlyKnown, // none of the known ones is one of these; the others may be
        MessageFails,        // one of the known ones is
    };

    Kind kind = Kind::New;
    std::uint32_t product = 0; // of Products::kinds, where a product is the reason

    bool operator==(const Reason&) const = default;
};

// Such as "html was removed".
[[nodiscard]] std::string reasonText(const Reason& reason, const Products& products);

struct PlannedRecord {
    std::uint32_t record = 0; // of Job::records
    Reason reason;

    bool operator==(const PlannedRecord&) const = default;
};

// A run of another log was killed while it had a record in work. That log will always say so:
// when the record is made, our own log says that this is settled.
struct BegunElsewhere {
    std::uint32_t record = 0; // of Job::records
    std::string log;
    std::uint32_t run = 0;

    bool operator==(const BegunElsewhere&) const = default;
};

struct Plan {
    std::vector<PlannedRecord> toRun; // by name
    std::size_t upToDate = 0;
    std::vector<BegunElsewhere> toSettle; // by record
};

// The files that a run depends on beside the records, as they are now.
[[nodiscard]] RunConditions conditionsNow(const BatchDefinition& job, const Products& products,
                                          const FileStamps& stamps);

// What of the job must run. A record is up to date when some log tells that a run made it under the
// same conditions, it and its products are as that run left them, and no run that was killed had it
// in work. With `all`, no record is up to date.
// `judged` are the messages of each log (the own one, then history.others.logs): a record that
// would be up to date runs where its messages fail it, or are not all known.
// The system is asked once for each folder that holds products, and once more for each product that
// a listing does not show; for a few records among many, once for each product. Raises what
// FileStamps raises.
[[nodiscard]] Plan planRun(const Job& job, const Products& products, const StateHistory& history,
                           const RunConditions& now, const FileStamps& stamps, bool all,
                           std::span<const JudgedMessages> judged = {});

} // namespace tarnwick
