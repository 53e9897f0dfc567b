#include "common/text.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(Text, Trimming_takes_blanks_from_both_ends_and_nothing_else) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\ta "), "\ta");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(""), "");
}

TEST(Text, A_quoted_text_stands_in_double_quotation_marks) {
    EXPECT_EQ(quoted("a"), "\"a\"");
}

TEST(Text, Every_occurrence_of_a_character_is_taken_out) {
    EXPECT_EQ(without("\"a\" \"b\"", '"'), "a b");
}

TEST(Text, A_backslash_joins_folder_and_name_only_when_the_folder_does_not_end_in_one) {
    EXPECT_EQ(joinPath("D:\\Out", "rec1.err"), "D:\\Out\\rec1.err");
    EXPECT_EQ(joinPath("D:\\Out\\", "rec1.err"), "D:\\Out\\rec1.err");
}

} // namespace
} // namespace tarnwick
