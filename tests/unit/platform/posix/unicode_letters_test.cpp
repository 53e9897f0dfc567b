#include "platform/case_folding.hpp"
#include "platform/code_page.hpp"
#include "platform/posix/unicode_letters.hpp"
#include "platform/wildcard.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {
namespace {

const CodePage everyScript(capitalOf);

TEST(UnicodeLetters, Letters_of_every_script_have_their_capital) {
    EXPECT_EQ(upperCase("caf\u00E9 \u03C9\u043B\u0561 \U00010428", everyScript),
              "CAF\u00C9 \u03A9\u041B\u0531 \U00010400");
    EXPECT_TRUE(equalIgnoringCase("\u00DCBER.met", "\u00FCber.MET", everyScript));
    EXPECT_FALSE(equalIgnoringCase("\u00DCBER.met", "UBER.met", everyScript));
}

TEST(UnicodeLetters, What_has_no_capital_of_one_character_stays) {
    EXPECT_EQ(upperCase("\u00DF \u3042 \U0001F600 \u00F7", everyScript),
              "\u00DF \u3042 \U0001F600 \u00F7");
}

TEST(UnicodeLetters, Nothing_beyond_ASCII_becomes_a_letter_of_ASCII) {
    EXPECT_EQ(upperCase("\u0131\u017F", everyScript), "\u0131\u017F");
    EXPECT_FALSE(equalIgnoringCase("\u0131", "I", everyScript));
    EXPECT_FALSE(equalIgnoringCase("i", "\u0131", everyScript));
}

TEST(UnicodeLetters, A_letter_and_its_capital_may_differ_in_length) {
    EXPECT_EQ(upperCase("x\u0250y", everyScript), "X\u2C6FY"); // longer
    EXPECT_EQ(upperCase("x\u2C65y", everyScript), "X\u023AY"); // shorter
    EXPECT_TRUE(equalIgnoringCase("x\u0250y", "X\u2C6FY", everyScript));
    EXPECT_TRUE(matchesWildcard("\u0250.met", "\u2C6F.*", everyScript));
    EXPECT_TRUE(matchesWildcard("\u0250.met", "?.met", everyScript));
    EXPECT_FALSE(equalIgnoringCase("\u0250", "\u2C6F\u2C6F", everyScript));
}

TEST(UnicodeLetters, Bytes_that_are_no_character_are_only_themselves) {
    EXPECT_EQ(upperCase("\xE9 a\xC3", everyScript), "\xE9 A\xC3");
    EXPECT_FALSE(equalIgnoringCase("\xE9", "\xC9", everyScript));
}

TEST(UnicodeLetters, Sorting_and_comparing_agree) {
    const std::vector<std::string> names{"b",
                                         "\u00E9a",
                                         "\u00C9b",
                                         "\u0250",
                                         "\u2C6Fa",
                                         "A",
                                         "a",
                                         "\xE9",
                                         "\xE9z",
                                         "\u00E9",
                                         "zz",
                                         "Z",
                                         "a.met",
                                         "\U00010428",
                                         "\u2C65",
                                         "\u041B.met",
                                         "\u043B.met",
                                         "\u043B",
                                         "",
                                         "a\u00E9",
                                         "A\u00C9",
                                         "the same long beginning \u00E9",
                                         "the same long beginning \u00C9"};
    auto sorted = names;
    sortNames(sorted, everyScript);
    auto compared = names;
    std::ranges::sort(compared, [](std::string_view left, std::string_view right) {
        return nameLess(left, right, everyScript);
    });
    EXPECT_EQ(sorted, compared);
    EXPECT_TRUE(nameLess("\u00E9a", "\u00C9b", everyScript));
    EXPECT_FALSE(nameLess("\u00C9b", "\u00E9a", everyScript));
    EXPECT_TRUE(nameLess("zz", "\u00C9", everyScript));
}

} // namespace
} // namespace tarnwick
