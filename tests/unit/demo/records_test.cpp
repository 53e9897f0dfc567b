#include "tool_test.hpp"

#include <algorithm>
#include <map>
#include <utility>

namespace demo {
namespace {

// The error report's last line for each record of the demo, read as it stands and as cns repairs
// it. Whoever adds a record says here what is wrong with it.
using Expected = std::map<std::string, std::pair<std::string, std::string>>;
const Expected& expectedRecords() {
    static const Expected records{
        {"aliased.met", {"Errors: 11. Warnings: 0.", "Errors: 0. Warnings: 0."}},
        {"bad_date.met", {"Errors: 2. Warnings: 0.", "Errors: 2. Warnings: 0."}},
        {"forests.met", {"Errors: 0. Warnings: 0.", "Errors: 0. Warnings: 0."}},
        {"glaciers.met", {"Errors: 0. Warnings: 0.", "Errors: 0. Warnings: 0."}},
        {"lakes.met", {"Errors: 0. Warnings: 0.", "Errors: 0. Warnings: 0."}},
        {"long_line.met", {"Errors: 0. Warnings: 1.", "Errors: 0. Warnings: 1."}},
        {"loose.met", {"Errors: 19. Warnings: 0.", "Errors: 0. Warnings: 0."}},
        {"no_title.met", {"Errors: 1. Warnings: 0.", "Errors: 1. Warnings: 0."}},
        {"out_of_range.met", {"Errors: 2. Warnings: 0.", "Errors: 2. Warnings: 0."}},
        {"soils.met", {"Errors: 0. Warnings: 0.", "Errors: 0. Warnings: 0."}},
        {"stray_text.met", {"Errors: 2. Warnings: 0.", "Errors: 0. Warnings: 0."}},
        {"swapped.met", {"Errors: 2. Warnings: 0.", "Errors: 2. Warnings: 0."}},
        {"tide stations.met", {"Errors: 0. Warnings: 0.", "Errors: 0. Warnings: 0."}},
        {"twice.met", {"Errors: 3. Warnings: 0.", "Errors: 1. Warnings: 0."}},
        {"unknown element.met", {"Errors: 1. Warnings: 0.", "Errors: 0. Warnings: 0."}},
        {"wells.met", {"Errors: 0. Warnings: 0.", "Errors: 0. Warnings: 0."}},
    };
    return records;
}

class DemoRecords : public ToolTest {
  protected:
    static std::filesystem::path folder() { return {DEMO_FOLDER}; }
    std::string lastReportLine(const std::string& input) {
        EXPECT_EQ(mp({"-l", "en", "-e", path("a.err"), "-h", path("a.html"), input}), 0);
        const auto report = read("a.err");
        const auto begin = report.rfind("\r\n", report.size() - 3) + 2;
        return report.substr(begin, report.size() - begin - 2);
    }
};

TEST_F(DemoRecords, Each_has_the_faults_that_it_is_there_for) {
    const auto aliases = (folder() / "aliases.txt").string();
    std::vector<std::string> seen;
    for (const auto& entry : std::filesystem::directory_iterator(folder() / "records")) {
        const auto name = entry.path().filename().string();
        const auto record = entry.path().string();
        SCOPED_TRACE(name);
        seen.push_back(name);
        ASSERT_TRUE(expectedRecords().contains(name));
        EXPECT_EQ(lastReportLine(record), expectedRecords().at(name).first);
        EXPECT_EQ(cns({"-l", "en", "-a", aliases, "-o", path("a.cns"), record}), 0);
        EXPECT_EQ(lastReportLine(path("a.cns")), expectedRecords().at(name).second);
    }
    EXPECT_EQ(seen.size(), expectedRecords().size());
}

} // namespace
} // namespace demo
