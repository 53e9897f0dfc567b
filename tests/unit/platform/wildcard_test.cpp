#include "platform/wildcard.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

TEST(Wildcard, A_star_stands_for_any_characters_and_a_question_mark_for_one) {
    EXPECT_TRUE(matchesWildcard("rec1.met", "*.met"));
    EXPECT_TRUE(matchesWildcard("rec1.met", "rec?.met"));
    EXPECT_TRUE(matchesWildcard("rec1.met", "r*1*t"));
    EXPECT_FALSE(matchesWildcard("rec12.met", "rec?.met"));
    EXPECT_FALSE(matchesWildcard("rec1.meta", "*.met"));
}

TEST(Wildcard, Case_does_not_matter) {
    EXPECT_TRUE(matchesWildcard("CAF\xC9.MET", "caf\xE9.*t"));
}

TEST(Wildcard, Star_dot_star_is_every_name) {
    EXPECT_TRUE(matchesWildcard("README", "*.*"));
    EXPECT_FALSE(matchesWildcard("README", "*.*x"));
}

TEST(Wildcard, A_dot_before_a_wildcard_also_stands_for_the_end_of_a_name_without_one) {
    EXPECT_TRUE(matchesWildcard("README", "README.*"));
    EXPECT_TRUE(matchesWildcard("README", "*.???"));
    EXPECT_TRUE(matchesWildcard("README", "r*.*"));
    EXPECT_FALSE(matchesWildcard("README", "README.*x"));
    EXPECT_FALSE(matchesWildcard("README", "README.t*"));
    EXPECT_FALSE(matchesWildcard("README2", "README.*"));
}

TEST(Wildcard, A_question_mark_stands_for_nothing_before_a_dot_and_at_the_end) {
    EXPECT_TRUE(matchesWildcard("q.txt", "q?.txt"));
    EXPECT_FALSE(matchesWildcard("q.txt", "q??.t?xt"));
    EXPECT_TRUE(matchesWildcard("q", "q???"));
    EXPECT_TRUE(matchesWildcard("q.t", "????.???"));
    EXPECT_FALSE(matchesWildcard("qx", "?q"));
    EXPECT_FALSE(matchesWildcard("a.b", "a?b")); // it stands for no dot
}

TEST(Wildcard, A_dot_at_the_end_asks_for_a_name_without_an_extension) {
    EXPECT_TRUE(matchesWildcard("README", "*."));
    EXPECT_FALSE(matchesWildcard("README.txt", "*."));
    EXPECT_FALSE(matchesWildcard("a.b.c", "a*."));
    EXPECT_TRUE(matchesWildcard("README", "README."));
}

TEST(Wildcard, A_star_before_a_dot_leaves_the_last_dot_of_the_name) {
    EXPECT_TRUE(matchesWildcard("a.b.met", "*.met"));
    EXPECT_FALSE(matchesWildcard("abc.txt", "a*.?"));
    EXPECT_TRUE(matchesWildcard("abc.t", "a*.?"));
}

TEST(Wildcard, A_longer_extension_is_no_match_although_its_short_name_would_be) {
    EXPECT_FALSE(matchesWildcard("page.html", "*.htm"));
}

TEST(Wildcard, A_pattern_of_many_stars_takes_no_exponential_time) {
    EXPECT_FALSE(matchesWildcard(std::string(5000, 'a'), "*a*a*a*a*a*a*a*a*a*a*a*b"));
}

TEST(Wildcard, Any_of_the_patterns_may_match_and_blanks_around_them_do_not_count) {
    EXPECT_TRUE(matchesAnyWildcard("a.tif", "*.sid; *.tif ;"));
    EXPECT_FALSE(matchesAnyWildcard("a.txt", "*.sid;*.tif"));
}

TEST(Wildcard, No_pattern_is_every_name) {
    EXPECT_TRUE(matchesAnyWildcard("a.txt", ""));
    EXPECT_TRUE(matchesAnyWildcard("a.txt", " ; ;"));
}

TEST(Wildcard, Names_are_ordered_without_regard_to_case_and_always_the_same_way) {
    std::vector<std::string> names{"b", "a2", "B", "A10", "a", "\xE9", "z"};
    std::ranges::sort(names, nameLess);
    EXPECT_EQ(names, (std::vector<std::string>{"a", "A10", "a2", "B", "b", "z", "\xE9"}));
    EXPECT_FALSE(nameLess("a", "a"));
}

} // namespace
} // namespace tarnwick
