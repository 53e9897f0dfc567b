#pragma once

#include "platform/file_stamps.hpp"
#include "platform/tool_processes.hpp"
#include "processing/commands/tool_steps.hpp"
#include "runner/messages.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tarnwick {

// One call of a tool, as it was made and as it ended.
struct CallOutcome {
    Tool tool = Tool::MP;
    ToolCall call;
    ToolEnd end;
};

// What became of one record.
struct RecordOutcome {
    enum class Result { Made, Failed, Interrupted };

    std::string record;
    Result result = Result::Failed;
    std::string why;                // a sentence; empty where it is made
    Stamp stamp;                    // of the record, as the tools read it
    std::vector<CallOutcome> calls; // of the last attempt
    std::vector<Stamp> products;    // in the order of Products::kinds; where it is made
    // Where every report that the tools were asked for was written, and could be read.
    std::optional<RecordMessages> messages;
};

// Whether its last tool ended by the signal that asks for that. Engines send it to all of a job, to
// us and to the tools that we run.
[[nodiscard]] bool wasAskedToEnd(const RecordOutcome& outcome);

// "MP ended with status 2: no such element". Of a call whose status is not accepted.
[[nodiscard]] std::string failureText(const CallOutcome& outcome);

} // namespace tarnwick
