#include "platform/kept_output.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

std::string kept(const std::vector<std::string>& said) {
    KeptOutput output;
    for (const std::string& bytes : said) {
        output.add(bytes);
    }
    return output.text();
}

const std::string beginning(keptOutput, 'b');
const std::string end(keptOutput, 'e');

TEST(KeptOutput, Of_a_tool_that_says_nothing_nothing_is_kept) {
    EXPECT_EQ(kept({}), "");
    EXPECT_EQ(kept({"", ""}), "");
}

TEST(KeptOutput, What_is_short_is_kept_as_it_came) {
    const std::string bytes("one\r\n\0two\xE9\x1B", 11);
    EXPECT_EQ(kept({bytes, "", "three"}), bytes + "three");
}

TEST(KeptOutput, Up_to_twice_the_limit_all_is_kept) {
    EXPECT_EQ(kept({beginning + end}), beginning + end);
    EXPECT_EQ(kept({beginning, end}), beginning + end);
}

TEST(KeptOutput, Of_more_the_beginning_and_the_end_are_kept_and_the_rest_is_counted) {
    EXPECT_EQ(kept({beginning + "x" + end}), beginning + "\n[bytes left out: 1]\n" + end);
    EXPECT_EQ(kept({beginning, std::string(1'000'000, 'x'), end}),
              beginning + "\n[bytes left out: 1000000]\n" + end);
}

TEST(KeptOutput, However_it_comes_the_same_is_kept) {
    std::string said = beginning;
    while (said.size() < 7 * keptOutput + 5) {
        said += std::to_string(said.size()) + ' ';
    }
    const std::string whole = kept({said});
    ASSERT_TRUE(whole.contains("]\n" + said.substr(said.size() - keptOutput)));
    for (const std::size_t size : {1UZ, 7UZ, 4096UZ, keptOutput - 1, keptOutput, 2 * keptOutput,
                                   2 * keptOutput + 1, 3 * keptOutput}) {
        std::vector<std::string> pieces;
        for (std::size_t at = 0; at < said.size(); at += size) {
            pieces.push_back(said.substr(at, size));
        }
        EXPECT_EQ(kept(pieces), whole) << size;
    }
}

} // namespace
} // namespace tarnwick
