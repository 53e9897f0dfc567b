#pragma once

#include "platform/files.hpp"
#include "report/run_report.hpp"
#include "runner/judged_messages.hpp"
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

// A message log, and the runs that it is of.
struct MessageSource {
    std::string path;
    std::uint32_t lastRun = 0; // of the run log beside it; 0 where the last run was of another log
    std::uint32_t shares = 0;  // how many shares make all records; 0: the log is of all records
};

// What is asked of the message logs.
struct FindingsRequest {
    std::vector<MessageSource> logs;
    const std::vector<std::string>& records; // their names, as the logs have them
    std::vector<std::uint32_t> logOf;        // of each record, the one of `logs` that counts
    const MessagePatterns& patterns;
    const ToUtf8& utf8;
    std::function<bool(RecordPlace record)> wantsTexts{}; // empty: the findings alone are counted
};

// What the tools have said of those records: as RunReport has it.
struct KeptFindings {
    std::vector<Shape> shapes;
    std::vector<std::vector<Finding>> findings; // of each record
    std::vector<KeptMessages> messages;         // of each, where their texts were asked for
    std::vector<std::uint64_t> leftOut;         // of each, how many messages are not kept
    std::vector<std::string> failing;           // of each, the first message that fails it
    std::vector<Judgement> judgements;          // of each, by the patterns that fail it
    std::vector<RecordChange> changes;
    std::vector<RunTotals> runs;
    bool hasRunBefore = false;
};

// Of shares, `runs` has what all of them came to together, each time that they were run.
// Memory: the findings, the texts where they were asked for, and the examples. Raises what
// readMessageLog raises.
[[nodiscard]] KeptFindings readFindings(const Files& files, const FindingsRequest& request);

// Adds to `totals` how many records have findings, and how many messages these are. RunTotals says
// what counts.
void countFindings(const KeptFindings& findings, RunTotals& totals);

} // namespace tarnwick
