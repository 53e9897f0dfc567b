#include "report/reports.hpp"

#include "platform/case_folding.hpp"
#include "report/csv_report.hpp"
#include "report/html_report.hpp"
#include "report/json_report.hpp"
#include "report/junit_report.hpp"

#include <array>

namespace tarnwick {
namespace {

struct KnownKind {
    std::string_view extension;
    ReportKind kind;
    std::string (*text)(const RunReport& report);
};
constexpr auto kinds = std::to_array<KnownKind>({
    {.extension = ".html", .kind = ReportKind::Html, .text = htmlReport},
    {.extension = ".json", .kind = ReportKind::Json, .text = jsonReport},
    {.extension = ".csv", .kind = ReportKind::Csv, .text = csvReport},
    {.extension = ".xml", .kind = ReportKind::JUnit, .text = junitReport},
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

std::string reportText(ReportKind kind, const RunReport& report) {
    for (const KnownKind& known : kinds) {
        if (known.kind == kind) {
            return known.text(report);
        }
    }
    return {};
}

} // namespace tarnwick
