#pragma once

#include "report/kept_findings.hpp"
#include "runner/run_command.hpp"

#include <optional>
#include <string>
#include <vector>

namespace tarnwick {

// The reports that a user wants.
struct ReportRequest {
    std::vector<std::string> files; // full Windows paths, each of a kind that there is
    std::string definition;         // the name of its file
    std::string stateFolder;
    MessagePatterns patterns;
    std::optional<Share> share; // of the run that reports
    std::string holder;         // who we are, as RunRequest::holder
    bool ofSomeRecords = false; // else of all that the definition has
};

// For RunRequest::remarksBefore: which reports could not be written as things are. The run is worth
// more than its reports, which can be made at any time after it: so it is not refused. Refers to
// `services`.
[[nodiscard]] std::function<std::vector<std::string>(const BatchDefinition& definition)>
remarksOnReports(ReportRequest request, const RunnerServices& services);

// For RunRequest::whenEnded: writes the reports, and says how everything stands. A run of some
// records says nothing of how everything stands. Copies what it needs but for `services` and
// `utf8`, which it refers to.
[[nodiscard]] std::function<RunEndNotes(const RunEnd& end)>
reportsAtTheEnd(ReportRequest request, const RunnerServices& services, const ToUtf8& utf8);

// Writes the reports by what the last runs left; needs no tools, and changes nothing else.
[[nodiscard]] ExitStatus reportOnRuns(const BatchDefinition& definition, const RunRequest& run,
                                      const ReportRequest& request, const RunnerServices& services,
                                      const ToUtf8& utf8);

} // namespace tarnwick
