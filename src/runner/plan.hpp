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
        MessagesUnknown,     // and the user insists on some not being there
        MessagesPartlyKnown, // likewise; none of those that are known is one of these
        MessageFails,        // one of those is
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

// That a record was in work when a run of another log was killed: told there for ever, were it not
// settled once the record is made.
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

// What of the job must run. A record is up to date when a run made it, whose log ever tells of
// that, under the same conditions, and it and its products are as that run left them, and no run
// that was killed had it in work; with `all` none is.
// Asks once for each folder that holds products, and once more for each product that a listing does
// not show; of a few records among many, once for each product. With `judged`, the messages of
// each log (the own one, then history.others.logs), what would be up to date must run where they
// fail it, or are not all known. Raises what FileStamps raises.
[[nodiscard]] Plan planRun(const Job& job, const Products& products, const StateHistory& history,
                           const RunConditions& now, const FileStamps& stamps, bool all,
                           std::span<const JudgedMessages> judged = {});

} // namespace tarnwick
