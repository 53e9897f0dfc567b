#include "common/text.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(Text, A_quoted_text_stands_in_double_quotation_marks) {
    EXPECT_EQ(quoted("a"), "\"a\"");
}

TEST(Text, Every_occurrence_of_a_character_is_taken_out) {
    EXPECT_EQ(without("\"a\" \"b\"", '"'), "a b");
}

} // namespace
} // namespace tarnwick
