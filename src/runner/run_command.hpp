#pragma once

#include "platform/files.hpp"
#include "platform/interruptions.hpp"
#include "platform/process_lock.hpp"
#include "platform/terminal.hpp"
#include "platform/tool_paths.hpp"
#include "platform/tool_processes.hpp"
#include "runner/console.hpp"
#include "runner/job.hpp"
#include "runner/run_clock.hpp"
#include "runner/run_observer.hpp"
#include "runner/run_settings.hpp"
#include "runner/run_totals.hpp"
#include "runner/state_lock.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// The status that the program ends with.
enum class ExitStatus : std::uint8_t {
    Done = 0,       // everything is made, or was
    SomeFailed = 1, // some records were not
    NothingRun = 2, // wrong use, a wrong definition, another runner at work
    Interrupted = 130,
    Terminated = 143,
};

// What the program asks of the system.
struct RunnerServices {
    Files& files;
    const FileStamps& stamps;
    const ToolPaths& paths;
    ToolProcesses& processes;
    ProcessLocks& locks;
    Interruptions& interruptions;
    Terminal& terminal;
    const RunClock& clock;
    std::function<bool(const std::string& program)> canStart; // see JobServices
    ToolText toolText{};
};

// A run that has ended, while nobody else can begin one.
struct RunEnd {
    const Job& job; // what was run; without its listing
    const Products& products;
    const RunSummary& summary;
    std::uint32_t run; // its number in the log
    std::string begun; // date and time, UTC
    bool hadWork;      // else nothing was to run, and the tools said nothing
};

// What RunRequest::whenEnded did at the end of a run.
struct RunEndNotes {
    std::optional<RunTotals> totals; // to be kept
    bool findingsAsBefore = false;   // as in TotalsLine, of these totals
    std::vector<std::string> told;   // sentences for the user
    std::vector<std::string> faults; // likewise, of what could not be done
};

struct RunRequest {
    JobRequest job;
    RunSettings settings;
    ConsoleStyle style;
    std::string stateFolder; // full path
    std::string holder; // who we are, for another runner to tell: "process 12 on HOST, since noon"
    LockTimes lockTimes{};
    bool dryRun = false; // only says what would be done
    // Both may be empty, and do not raise. The first gives remarks for the user before anything is
    // run, the other is called when the run has ended.
    std::function<std::vector<std::string>(const BatchDefinition& definition)> remarksBefore{};
    std::function<RunEndNotes(const RunEnd& end)> whenEnded{};
};

enum class CallFormat : std::uint8_t {
    Sh,   // a line for each record, for a POSIX shell
    Null, // the same, each ended by a NUL in place of its line end
    Json, // an object for each record
};

// Where what is known of a definition's runs lies: beside it.
[[nodiscard]] std::string stateFolderOf(std::string_view definitionFile);

// Runs the definition (or, for a dry run, says what would be run and why), and tells how it went.
[[nodiscard]] ExitStatus runDefinition(const BatchDefinition& definition, const RunRequest& request,
                                       const RunnerServices& services);

// Prints the calls of every record, up to date or not, and runs nothing. `utf8` gives a text of the
// program's code page in UTF-8.
[[nodiscard]] ExitStatus printCalls(const BatchDefinition& definition, const RunRequest& request,
                                    CallFormat format,
                                    const std::function<std::string(std::string_view text)>& utf8,
                                    const RunnerServices& services);

} // namespace tarnwick
