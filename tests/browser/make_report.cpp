// make_report KIND FILE...: writes a report that the tests know into each file, of the kind that
// its extension says. KIND: small, hostile, or how many records a generated one has.

#include "report/csv_report.hpp"
#include "report/html_report.hpp"
#include "report/json_report.hpp"
#include "report/junit_report.hpp"
#include "support/report_generator.hpp"

#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

RunReport reportOfKind(const std::string& kind) {
    return kind == "small"     ? smallReport()
           : kind == "hostile" ? hostileReport()
                               : generatedReport(std::stoul(kind));
}

std::string textFor(std::string_view file, const RunReport& report) {
    return file.ends_with(".html")   ? htmlReport(report)
           : file.ends_with(".json") ? jsonReport(report)
           : file.ends_with(".csv")  ? csvReport(report)
           : file.ends_with(".xml")  ? junitReport(report)
                                     : throw std::invalid_argument("no such kind of report");
}

} // namespace
} // namespace tarnwick

int main(int argc, char** argv) {
    try {
        const auto report = tarnwick::reportOfKind(argc > 1 ? argv[1] : "");
        for (int place = 2; place < argc; ++place) {
            std::ofstream(argv[place], std::ios::binary) << tarnwick::textFor(argv[place], report);
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "make_report: " << error.what() << '\n';
        return 1;
    }
}
