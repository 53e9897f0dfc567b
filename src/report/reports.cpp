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
    void (*write)(const RunReport& report, const ReportSink& sink);
    Texts texts;
};
constexpr auto kinds = std::to_array<KnownKind>({
    {.extension = ".html",
     .kind = ReportKind::Html,
     .mark = htmlMark,
     .write = htmlReport,
     .texts = Texts::OfFailures},
    {.extension = ".json",
     .kind = ReportKind::Json,
     .mark = jsonMark,
     .write = jsonReport,
     .texts = Texts::OfAll},
    {.extension = ".csv",
     .kind = ReportKind::Csv,
     .mark = csvMark,
     .write = csvReport,
     .texts = Texts::OfNone},
    {.extension = ".xml",
     .kind = ReportKind::JUnit,
     .mark = junitMark,
     .write = junitReport,
     .texts = Texts::OfAll},
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

Texts textsIn(ReportKind kind) {
    const auto* const found = std::ranges::find(kinds, kind, &KnownKind::kind);
    return found == kinds.end() ? Texts::OfNone : found->texts;
}

void writeReport(ReportKind kind, const RunReport& report, const ReportSink& sink) {
    for (const KnownKind& known : kinds) {
        if (known.kind == kind) {
            known.write(report, sink);
        }
    }
}

} // namespace tarnwick
