#include "report/report_words.hpp"
#include "support/report_generator.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace tarnwick {
namespace {

TEST(ReportWords, Numbers_are_grouped_by_thousands) {
    EXPECT_EQ(grouped(0), "0");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(1000), "1,000");
    EXPECT_EQ(grouped(12345678), "12,345,678");
}

TEST(ReportWords, One_is_no_plural) {
    EXPECT_EQ(counted(1, "record"), "1 record");
    EXPECT_EQ(counted(0, "record"), "0 records");
    EXPECT_EQ(counted(2000, "record"), "2,000 records");
}

TEST(ReportWords, A_time_that_no_clock_measures_is_none) {
    EXPECT_EQ(secondsText(0.0125), "0.013");
    EXPECT_EQ(secondsText(-1), "0.000");
    EXPECT_EQ(secondsText(std::numeric_limits<double>::quiet_NaN()), "0.000");
    EXPECT_EQ(secondsText(std::numeric_limits<double>::infinity()), "0.000");
}

TEST(ReportWords, What_nearly_every_record_has_is_not_counted_but_what_is_left_out) {
    const RunReport report = smallReport();
    const FindingCounts counts = findingsOf(report, report.records[0]);
    EXPECT_EQ(counts.shapes, 1U);
    EXPECT_EQ(counts.messages, 2U + 12U);
}

TEST(ReportWords, A_date_and_time_is_known_by_its_digits) {
    EXPECT_TRUE(isDateAndTime("2026-11-22T02:24:48Z"));
    EXPECT_FALSE(isDateAndTime("2026-11-22T02:24:48"));
    EXPECT_FALSE(isDateAndTime("2026-11-22 02:24:48Z"));
    EXPECT_FALSE(isDateAndTime("2026-1x-22T02:24:48Z"));
    EXPECT_FALSE(isDateAndTime(""));
}

} // namespace
} // namespace tarnwick
