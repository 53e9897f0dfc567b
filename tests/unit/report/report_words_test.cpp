#include "report/report_words.hpp"

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

} // namespace
} // namespace tarnwick
