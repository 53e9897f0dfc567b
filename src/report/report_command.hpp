#pragma once

#include "report/kept_findings.hpp"
#include "runner/run_command.hpp"

#include <optional>
#include <string>
#include <vector>

namespace tarnwick {

// The reports that a user wants.
struct ReportRequest {
    std::vector<std::string> files; // full Windows paths; reportKindOf knows the kind of each
    std::string definition;         // the name of its file
    std::string stateFolder;
    MessagePatterns patterns;
    std::optional<Share> share; // of the run that reports
    std::string holder;         // who we are, as RunRequest::holder
    bool ofSomeRecords = false; // else of all that the definition has
};

// For RunRequest::remarksBefore: which reports could not be written as things are. That is no
// reason to refuse the run: its reports can be made at any time after it. Refers to `services`.
[[nodiscard]] std::function<std::vector<std::string>(const BatchDefinition& definition)>
remarksOnReports(ReportRequest request, const RunnerServices& services);

// For RunRequest::whenEnded: writes the reports, and gives the totals to be kept. A run of some of
// the records gives none, for it says nothing about the others. Refers to `services` and `utf8`.
[[nodiscard]] std::function<RunEndNotes(const RunEnd& end)>
reportsAtTheEnd(ReportRequest request, const RunnerServices& services, const ToUtf8& utf8);

// Writes the reports by what the last runs left; needs no tools, and changes nothing else.
[[nodiscard]] ExitStatus reportOnRuns(const BatchDefinition& definition, const RunRequest& run,
                                      const ReportRequest& request, const RunnerServices& services,
                                      const ToUtf8& utf8);

} // namespace tarnwick
