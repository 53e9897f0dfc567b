#include "report/json_report.hpp"
#include "support/report_generator.hpp"
#include "support/report_texts.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {
namespace {

TEST(JsonReport, Everything_stands_there_a_record_on_a_line) {
    EXPECT_EQ(textOf(jsonReport, smallReport()), R"x({"format": "tarnwick-run report 1",
"definition": "nightly.ini",
"made": "2026-11-22T02:37:22Z",
"totals": {"begun":"2026-11-22T02:24:48Z","seconds":754.0,"made":1,"upToDate":1,"failed":1,"notRun":0,"recordsWithFindings":1,"messages":14},
"findingsAreKnown": true,
"hasRunBefore": true,
"remarks": ["Share 2 of 4 is still at work."],
"runs": [
{"begun":"2026-11-21T02:24:48Z","seconds":754.0,"made":1,"upToDate":1,"failed":2,"notRun":0,"recordsWithFindings":1,"messages":14},
{"begun":"2026-11-22T02:24:48Z","seconds":754.0,"made":1,"upToDate":1,"failed":1,"notRun":0,"recordsWithFindings":1,"messages":14}],
"products": [
{"label":"Html","folder":"../products/html/","suffix":".html","tool":"MP"},
{"label":"Error","folder":"../products/errors/","suffix":".err","tool":"MP"},
{"label":"Leftovers","folder":"../products/left%20overs/","suffix":".left","tool":"CNS"}],
"shapes": [
{"text":"Error (line #): \"…\" is no date","records":1,"messages":2,"recordsBefore":0,"common":false,"examples":[{"record":"lakes & rivers.met","line":3,"text":"Error (line 3): \"soon\" is no date"}]},
{"text":"# errors","records":1,"messages":1,"recordsBefore":1,"common":true,"examples":[]},
{"text":"… is empty","records":0,"messages":0,"recordsBefore":1,"common":false,"examples":[]}],
"changes": [
{"record":"lakes & rivers.met","appeared":[0],"gone":[2]}],
"records": [
{"name":"lakes & rivers.met","state":"made","why":"","calls":[{"tool":"CNS","code":0,"seconds":0.002},{"tool":"MP","code":0,"seconds":0.0135}],"findings":[{"shape":0,"messages":2,"line":3},{"shape":1,"messages":1,"line":9}],"messages":[{"line":3,"shape":0,"text":"Error (line 3): \"soon\" is no date"},{"line":9,"shape":1,"text":"2 errors"},{"line":301,"shape":0,"text":"Error (line 7): \"late\" is no date"}],"messagesLeftOut":12,"mpStem":"lakes & rivers","cnsStem":"lakes & rivers"},
{"name":"tide.stations.met","state":"up to date","why":"","calls":[{"tool":"MP","code":0,"seconds":1.5}],"findings":[],"messages":[],"messagesLeftOut":0,"mpStem":"tide.stations","cnsStem":""},
{"name":"wells.met","state":"failed","why":"MP ended with status 2: no element: \"West\"","calls":[{"tool":"MP","code":2,"seconds":0.5}],"findings":[],"messages":[],"messagesLeftOut":0,"mpStem":"","cnsStem":""}]}
)x");
}

TEST(JsonReport, What_is_no_UTF_8_becomes_the_character_that_stands_for_such) {
    RunReport report;
    report.definition = std::string("a\0b \xC3 \x1B", 7);
    EXPECT_TRUE(textOf(jsonReport, report)
                    .contains("\"definition\": \"a\\u0000b \xEF\xBF\xBD \\u001b\",\n"));
}

TEST(JsonReport, A_time_that_is_no_number_is_none) {
    RunReport report;
    report.records = {{.name = "a", .calls = {{"MP", 0, std::numeric_limits<double>::infinity()}}}};
    EXPECT_TRUE(textOf(jsonReport, report).contains(R"({"tool":"MP","code":0,"seconds":0.0})"));
}

// A hundred thousand records are some hundred megabytes: no piece holds more than one of them.
TEST(JsonReport, Is_given_record_by_record) {
    std::vector<std::string> pieces;
    jsonReport(smallReport(), [&](std::string_view piece) { pieces.emplace_back(piece); });
    for (const ReportedRecord& record : smallReport().records) {
        EXPECT_EQ(std::ranges::count_if(pieces,
                                        [&](const std::string& piece) {
                                            return piece.starts_with("{\"name\":\"" +
                                                                     record.name) &&
                                                   piece.ends_with("\"}");
                                        }),
                  1)
            << record.name;
    }
}

} // namespace
} // namespace tarnwick
