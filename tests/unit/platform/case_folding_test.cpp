#include "platform/case_folding.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(CaseFolding, Ascii_letters_have_a_capital_and_everything_else_stays) {
    EXPECT_EQ(upperCase("rec-1_a.Xml{}"), "REC-1_A.XML{}");
}

TEST(CaseFolding, Accented_letters_have_a_capital_too) {
    EXPECT_EQ(upperCase("caf\xE9 \xFC\xF1\xE7"), "CAF\xC9 \xDC\xD1\xC7");
    EXPECT_EQ(upperCase("\x9A\x9C\x9E\xFF"), "\x8A\x8C\x8E\x9F");
}

TEST(CaseFolding, Signs_in_the_range_of_the_letters_have_none) {
    EXPECT_EQ(upperCase("\xF7"), "\xF7");
    EXPECT_EQ(upperCase("\xDF"), "\xDF");
}

TEST(CaseFolding, Texts_are_equal_without_regard_to_case_only_at_the_same_length) {
    EXPECT_TRUE(equalIgnoringCase("CAF\xC9", "caf\xE9"));
    EXPECT_FALSE(equalIgnoringCase("caf", "caf\xE9"));
    EXPECT_FALSE(equalIgnoringCase("cafe", "caf\xE9"));
}

} // namespace
} // namespace tarnwick
