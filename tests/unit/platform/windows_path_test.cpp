#include "platform/windows_path.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(WindowsPath, A_colon_stands_only_behind_the_letter_of_a_drive) {
    EXPECT_TRUE(isPossiblePath("C:x"));
    EXPECT_TRUE(isPossiblePath("c:\\x"));
    EXPECT_FALSE(isPossiblePath("\\:x"));
    EXPECT_FALSE(isPossiblePath("/:x"));
    EXPECT_FALSE(isPossiblePath("1:x"));
    EXPECT_FALSE(isPossiblePath("C:\\x:y"));
}

TEST(WindowsPath, The_last_part_begins_behind_a_drive_but_not_behind_another_colon) {
    EXPECT_EQ(lastPart("C:x"), "x");
    EXPECT_EQ(lastPart("1:x"), "1:x");
}

} // namespace
} // namespace tarnwick
