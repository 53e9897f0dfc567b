#pragma once

#include "platform/files.hpp"
#include "report/run_report.hpp"
#include "runner/message_patterns.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// A text of the program's code page, or of a tool's, in UTF-8.
using ToUtf8 = std::function<std::string(std::string_view text)>;

// What is asked of a message log.
struct FindingsRequest {
    std::string messageLog; // its path
    std::uint32_t lastRun = 0;
    const std::vector<std::string>& records; // their names, as the logs have them
    const MessagePatterns& patterns;
    const ToUtf8& utf8;
};

// What the tools have said of those records: as RunReport has it.
struct KeptFindings {
    std::vector<Shape> shapes;
    std::vector<std::vector<Finding>> findings; // of each record
    std::vector<std::string> failing;           // of each, the first message that fails it
    std::vector<RecordChange> changes;
    std::vector<RunTotals> runs;
    bool hasRunBefore = false;
};

// Memory: the findings, and no message but the examples. Raises what readMessageLog raises.
[[nodiscard]] KeptFindings readFindings(const Files& files, const FindingsRequest& request);

// Adds to `totals` how many records have findings, and how many these are; see there what counts.
void countFindings(const KeptFindings& findings, RunTotals& totals);

} // namespace tarnwick
