#include "platform/characters.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(Characters, Trimming_takes_blanks_from_both_ends_and_nothing_else) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\ta "), "\ta");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(""), "");
}

} // namespace
} // namespace tarnwick
