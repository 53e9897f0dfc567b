// make_report KIND FILE...: writes a report that the tests know into each file, of the kind that
// its extension says. KIND: small, hostile, or how many records a generated one has.

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

RunReport reportOfKind(const std::string& kind) {
    return kind == "small"     ? smallReport()
           : kind == "hostile" ? hostileReport()
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
