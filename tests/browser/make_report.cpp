// make_report KIND FILE...: writes a report that the tests know into each file, of the kind that
// its extension says. KIND: small, hostile, findings (many of few records), or how many
// records a generated one has.

#include "report/reports.hpp"
#include "support/report_generator.hpp"

#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

// The last of the records is called like a finding and has none.
RunReport reportOfManyFindings() {
    constexpr ShapePlace shapes = 30;
    RunReport report;
    report.definition = "nightly.ini";
    report.shapes.assign(shapes, {.text = "so", .records = 3, .messages = 3});
    for (RecordPlace place = 0; place < 3; ++place) {
        ReportedRecord& record = report.records.emplace_back();
        record.name = "survey " + std::to_string(place) + ".met";
        for (ShapePlace shape = 0; shape < shapes; ++shape) {
            record.findings.push_back({shape, 1, shape + 1});
        }
    }
    report.records.push_back({.name = "tides #30 .met"});
    return report;
}

RunReport reportOfKind(const std::string& kind) {
    return kind == "small"      ? smallReport()
           : kind == "hostile"  ? hostileReport()
           : kind == "findings" ? reportOfManyFindings()
                                : generatedReport(std::stoul(kind));
}

void writeFile(const std::string& path, const RunReport& report) {
    const auto kind = reportKindOf(path);
    if (!kind) {
        throw std::invalid_argument("no such kind of report");
    }
    std::ofstream file(path, std::ios::binary);
    writeReport(*kind, report, [&](std::string_view piece) { file << piece; });
}

} // namespace
} // namespace tarnwick

int main(int argc, char** argv) {
    try {
        const auto report = tarnwick::reportOfKind(argc > 1 ? argv[1] : "");
        for (int place = 2; place < argc; ++place) {
            tarnwick::writeFile(argv[place], report);
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "make_report: " << error.what() << '\n';
        return 1;
    }
}
