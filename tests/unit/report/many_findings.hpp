#pragma once

#include "report/run_report.hpp"

namespace tarnwick {

// One record with the findings #1 and #3, and 1,500 that have all of 900 shapes, named from the
// last to the first. The numbers of them all have no room in the rows of the page.
[[nodiscard]] inline RunReport reportWithMoreFindingsThanRoom() {
    constexpr ShapePlace shapes = 900;
    constexpr std::uint32_t records = 1500;
    ReportedRecord record{.name = "b.met"};
    for (ShapePlace place = shapes; place > 0; --place) {
        record.findings.push_back({place - 1, 1, 1});
    }
    RunReport report;
    report.records.assign(records, record);
    report.records.insert(report.records.begin(),
                          {.name = "a.met", .findings = {{2, 1, 1}, {0, 1, 4}}});
    report.shapes.assign(shapes, {.text = "so", .records = records, .messages = records});
    for (const Finding& finding : report.records.front().findings) {
        ++report.shapes[finding.shape].records;
        ++report.shapes[finding.shape].messages;
    }
    return report;
}

} // namespace tarnwick
