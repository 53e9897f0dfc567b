#include "report/csv_report.hpp"
#include "support/report_generator.hpp"
#include "support/report_texts.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarnwick {
namespace {

TEST(CsvReport, A_record_is_a_line) {
    EXPECT_EQ(textOf(csvReport, smallReport()),
              "\xEF\xBB\xBFrecord,state,why,shapes,messages,seconds,calls\r\n"
              "lakes & rivers.met,made,,1,14,0.015,\"CNS 0 in 0.002 s; MP 0 in 0.013 s\"\r\n"
              "tide.stations.met,up to date,,0,0,1.500,MP 0 in 1.500 s\r\n"
              "wells.met,failed,\"MP ended with status 2: no element: \"\"West\"\"\",0,0,0.500,"
              "MP 2 in 0.500 s\r\n");
}

TEST(CsvReport, Without_records_there_are_the_headings) {
    EXPECT_EQ(textOf(csvReport, {}),
              "\xEF\xBB\xBFrecord,state,why,shapes,messages,seconds,calls\r\n");
}

TEST(CsvReport, A_record_that_has_not_run_has_no_time) {
    RunReport report;
    report.records = {{.name = "a.met"}};
    EXPECT_TRUE(textOf(csvReport, report).ends_with("\r\na.met,not run,,0,0,,\r\n"));
}

TEST(CsvReport, Whatever_the_texts_are_a_record_is_one_line) {
    const RunReport report = hostileReport();
    const std::string text = textOf(csvReport, report);
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(text, '\n')), report.records.size() + 1);
    EXPECT_EQ(text.find('\0'), std::string::npos);
}

} // namespace
} // namespace tarnwick
