#pragma once

#include "report/kept_findings.hpp"
#include "report/run_report.hpp"
#include "runner/job.hpp"
#include "runner/products.hpp"
#include "runner/run_command.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// What a report is about: a definition, and where its runs have left what they know.
struct ReportSubject {
    const Job& job;
    const Products& products;
    std::string definition; // the name of its file
    std::string stateFolder;
    const MessagePatterns& patterns;
    std::optional<Share> share; // of the run that reports, where it is of one
    std::string holder;         // who we are, as RunRequest::holder
    Texts texts = Texts::OfAll;
};

// What the runs left, by their logs, the definition's products and the input folder; nothing is
// changed. A record that is no longer there is left out. The products' folders are empty yet: see
// linkProducts. Raises what the readers of the logs, planRun and Files raise.
[[nodiscard]] RunReport runReportOf(const ReportSubject& subject, const RunnerServices& services,
                                    const ToUtf8& utf8);

// Gives the products the links that lead to them from `file`, a full Windows path.
void linkProducts(RunReport& report, const Products& products, std::string_view file,
                  const ToolPaths& paths, const ToUtf8& utf8);

} // namespace tarnwick
