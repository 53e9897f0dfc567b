#include "platform/posix/to_utf8.hpp"
#include "platform/run_time_error.hpp"

#include <gtest/gtest.h>

#include <string>

namespace tarnwick {
namespace {

std::string told(std::string_view bytes, unsigned codePage) {
    try {
        return "no error: " + toUtf8(bytes, codePage);
    } catch (const RunTimeError& error) {
        return std::to_string(error.record().number) + ' ' + error.what();
    }
}

TEST(ToUtf8, Text_of_a_Windows_code_page_is_converted) {
    EXPECT_EQ(toUtf8("caf\xE9 \x80\r\n", 1252), "caf\u00E9 \u20AC\r\n");
    EXPECT_EQ(toUtf8("\xE9", 1251), "\u0439");
    EXPECT_EQ(toUtf8("\x83\x5C\x83\x5C", 932), "\u30BD\u30BD");
}

TEST(ToUtf8, What_is_UTF_8_already_stays_whatever_the_code_page) {
    EXPECT_EQ(toUtf8("plain", 1252), "plain");
    EXPECT_EQ(toUtf8("caf\u00E9 \U0001F600", 1252), "caf\u00E9 \U0001F600");
    EXPECT_EQ(toUtf8("caf\u00E9", 99'999), "caf\u00E9");
    EXPECT_EQ(toUtf8("", 1252), "");
}

TEST(ToUtf8, A_byte_order_mark_is_dropped) {
    EXPECT_EQ(toUtf8("\xEF\xBB\xBFINPUT_FOLDER=x", 1252), "INPUT_FOLDER=x");
}

TEST(ToUtf8, One_byte_that_is_no_UTF_8_makes_all_of_it_a_text_of_the_code_page) {
    EXPECT_EQ(toUtf8("\xC3\xA9 \xE9", 1252), "\u00C3\u00A9 \u00E9");
}

TEST(ToUtf8, A_byte_that_is_no_character_is_told_with_its_line) {
    EXPECT_EQ(told("a\r\nb\xE9\r\nc\x81", 1252),
              "321 The byte 81 in line 3 is no character of code page 1252");
    EXPECT_EQ(told("\x83", 932), "321 The byte 83 in line 1 is no character of code page 932");
    EXPECT_EQ(told("\xE9", 65'001), "321 The byte E9 in line 1 is no character of code page 65001");
}

TEST(ToUtf8, A_code_page_that_nobody_knows_is_told) {
    EXPECT_EQ(told("\xE9", 99'999), "321 Code page 99999 is not known here");
}

TEST(ToUtf8, A_long_text_is_converted_whole) {
    std::string long1252(100'000, '\xE9');
    std::string expected;
    for (std::size_t i = 0; i < long1252.size(); ++i) {
        expected += "\u00E9";
    }
    EXPECT_EQ(toUtf8(long1252, 1252), expected);
}

} // namespace
} // namespace tarnwick
