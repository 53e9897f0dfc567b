#include "report/reports.hpp"

#include "platform/case_folding.hpp"
#include "report/csv_report.hpp"
#include "report/html_report.hpp"
#include "report/json_report.hpp"
#include "report/junit_report.hpp"

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

struct KnownKind {
    std::string_view extension;
    ReportKind kind;
    std::string_view mark; // which stands at the beginning of such a report, and of no product
    std::string (*text)(const RunReport& report);
};
constexpr auto kinds = std::to_array<KnownKind>({
    {.extension = ".html", .kind = ReportKind::Html, .mark = htmlMark, .text = htmlReport},
    {.extension = ".json", .kind = ReportKind::Json, .mark = jsonMark, .text = jsonReport},
    {.extension = ".csv", .kind = ReportKind::Csv, .mark = csvMark, .text = csvReport},
    {.extension = ".xml", .kind = ReportKind::JUnit, .mark = junitMark, .text = junitReport},
});

} // namespace

std::optional<ReportKind> reportKindOf(std::string_view file) {
    for (const KnownKind& known : kinds) {
        if (file.size() > known.extension.size() &&
            equalIgnoringCase(file.substr(file.size() - known.extension.size()), known.extension)) {
            return known.kind;
        }
    }
    return std::nullopt;
}

bool isReport(ReportKind kind, std::string_view beginning) {
    return beginning.empty() || std::ranges::any_of(kinds, [&](const KnownKind& known) {
               return known.kind == kind && beginning.contains(known.mark);
           });
}

std::string reportText(ReportKind kind, const RunReport& report) {
    for (const KnownKind& known : kinds) {
        if (known.kind == kind) {
            return known.text(report);
        }
    }
    return {};
}

} // namespace tarnwick
