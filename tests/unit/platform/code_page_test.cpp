#include "platform/case_folding.hpp"
#include "platform/code_page.hpp"
#include "platform/wildcard.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {
namespace {

const CodePage western(CodePage::western);
const CodePage utf8(CodePage::utf8);

std::vector<std::size_t> lengths(std::string_view text, const CodePage& codePage) {
    std::vector<std::size_t> result;
    while (!text.empty()) {
        result.push_back(codePage.lengthOfFirst(text));
        text.remove_prefix(result.back());
    }
    return result;
}

using Lengths = std::vector<std::size_t>;

TEST(CodePage, In_1252_every_byte_is_a_character) {
    for (unsigned code = 0; code < 256; ++code) {
        EXPECT_EQ(western.lengthOfFirst(std::string(1, static_cast<char>(code)) + "xxx"), 1U)
            << code;
    }
}

TEST(CodePage, Characters_of_two_bytes_begin_with_a_lead_byte_and_need_a_second_one) {
    for (const unsigned number : {932U, 936U, 949U, 950U}) {
        const CodePage page(number);
        EXPECT_TRUE(page.hasTrailBytes());
        EXPECT_EQ(lengths("a\x83\x5C.\x95", page), (Lengths{1, 2, 1, 1})) << number;
        EXPECT_EQ(lengths("\x80\xFF", page), (Lengths{1, 1})) << number;
    }
    EXPECT_EQ(lengths("\xB1\xDD\xFD", CodePage(932)), (Lengths{1, 1, 1})); // single katakana
    EXPECT_EQ(lengths("\xB1\xDD\xFD\xFE", CodePage(936)), (Lengths{2, 2}));
    EXPECT_EQ(lengths("\xA0\x41\xE0\x41", CodePage(932)), (Lengths{1, 1, 2}));
}

TEST(CodePage, In_UTF_8_up_to_four_bytes_are_a_character_and_what_is_none_stands_by_itself) {
    EXPECT_FALSE(utf8.hasTrailBytes());
    EXPECT_EQ(lengths("e\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", utf8), (Lengths{1, 2, 3, 4}));
    EXPECT_EQ(lengths("\xC3", utf8), Lengths{1}); // cut off
    EXPECT_EQ(lengths("\xE2\x82\\", utf8), (Lengths{1, 1, 1}));
    EXPECT_EQ(lengths("\xC0\xAF", utf8), (Lengths{1, 1})); // a longer form of "/"
    EXPECT_EQ(lengths("\xE0\x80\xAF", utf8), (Lengths{1, 1, 1}));
    EXPECT_EQ(lengths("\xF0\x80\x80\xAF", utf8), (Lengths{1, 1, 1, 1}));
    EXPECT_EQ(lengths("\xED\xA0\x80", utf8), (Lengths{1, 1, 1})); // half of a pair
    EXPECT_EQ(lengths("\xF4\x90\x80\x80", utf8), (Lengths{1, 1, 1, 1}));
    EXPECT_EQ(lengths("\xF5\x80\x80\x80", utf8), (Lengths{1, 1, 1, 1}));
}

TEST(CodePage, Bytes_that_are_no_character_are_known) {
    int free = 0;
    for (unsigned code = 0; code < 256; ++code) {
        free += western.isCharacter(std::string(1, static_cast<char>(code))) ? 0 : 1;
    }
    EXPECT_EQ(free, 5);
    EXPECT_FALSE(western.isCharacter("\x81"));
    EXPECT_TRUE(utf8.isCharacter("\xC3\xA9"));
    EXPECT_FALSE(utf8.isCharacter("\xA9"));
    EXPECT_TRUE(CodePage(932).isCharacter("\xB1"));
    EXPECT_FALSE(CodePage(932).isCharacter("\x95"));
    EXPECT_FALSE(CodePage(936).isCharacter("\xB1"));
}

TEST(CodePage, In_UTF_8_only_letters_of_ASCII_have_another_case) {
    EXPECT_EQ(upperCase("caf\xC3\xA9 \xE3\x81\x82", utf8), "CAF\xC3\xA9 \xE3\x81\x82");
    EXPECT_TRUE(equalIgnoringCase("caf\xC3\xA9", "CAF\xC3\xA9", utf8));
    EXPECT_FALSE(equalIgnoringCase("\xE3\x81\x82", "\xC3\x81\x82", utf8));
    EXPECT_TRUE(equalIgnoringCase("\xE3\x81\x82", "\xC3\x81\x82", western));
}

TEST(CodePage, A_second_byte_that_looks_like_a_letter_has_no_other_case) {
    for (const unsigned number : {932U, 936U, 949U, 950U}) {
        const CodePage page(number);
        EXPECT_EQ(upperCase("a\x83"
                            "ab",
                            page),
                  "A\x83"
                  "aB")
            << number;
        EXPECT_FALSE(equalIgnoringCase("\x83"
                                       "a",
                                       "\x83"
                                       "A",
                                       page));
        EXPECT_TRUE(equalIgnoringCase("x\x83"
                                      "a",
                                      "X\x83"
                                      "a",
                                      page));
        EXPECT_EQ(upperCase("\xE9", page), "\xE9") << number; // in 1252 an e with an accent
    }
}

TEST(CodePage, Texts_that_are_not_equally_long_are_not_equal) {
    const CodePage japanese(932);
    EXPECT_FALSE(equalIgnoringCase("\x83\x41", "\x83", japanese));
    EXPECT_FALSE(equalIgnoringCase("", "\x83", japanese));
    EXPECT_TRUE(equalIgnoringCase("", "", japanese));
}

TEST(CodePage, A_question_mark_stands_for_a_character_of_whatever_length) {
    EXPECT_TRUE(matchesWildcard("caf\xC3\xA9.met", "caf?.met", utf8));
    EXPECT_TRUE(matchesWildcard("\xF0\x9F\x98\x80", "?", utf8));
    EXPECT_FALSE(matchesWildcard("caf\xC3\xA9.met", "caf?.met", western));
    EXPECT_TRUE(matchesWildcard("caf\xC3\xA9.met", "caf??.met", western));
    for (const unsigned number : {932U, 936U, 949U, 950U}) {
        const CodePage page(number);
        EXPECT_TRUE(matchesWildcard("a\x83\x61.met", "A?.MET", page)) << number;
        EXPECT_TRUE(matchesWildcard("a\x83\x61.met", "*\x83\x61.met", page)) << number;
        EXPECT_FALSE(matchesWildcard("a\x83\x61.met", "*\x83\x41.met", page)) << number;
        EXPECT_FALSE(matchesWildcard("\x83\x61", "\x83?", page)) << number;
    }
}

TEST(CodePage, Names_are_ordered_by_their_upper_cased_characters) {
    for (const unsigned number : {932U, 936U, 949U, 950U, 1252U, CodePage::utf8}) {
        const CodePage page(number);
        std::vector<std::string> names{"b", "\x83\x62", "A", "a", "\x83\x41", "C"};
        sortNames(names, page);
        EXPECT_EQ(names, (std::vector<std::string>{"A", "a", "b", "C", "\x83\x41", "\x83\x62"}))
            << number;
        EXPECT_TRUE(nameLess("A", "a", page) && !nameLess("a", "A", page));
        EXPECT_TRUE(nameLess("a", "B", page) && nameLess("a", "ab", page));
    }
    // By its second byte as it is, not as the letter that it is not.
    EXPECT_TRUE(nameLess("\x83\x5F", "\x83\x61", CodePage(932)));
    EXPECT_FALSE(nameLess("\x83\x5F", "\x83\x61", western));
}

TEST(CodePage, One_of_single_bytes_may_have_letters_of_its_own) {
    CodePage::Capitals capitals{};
    for (unsigned code = 0; code < capitals.size(); ++code) {
        capitals.at(code) = static_cast<char>(code);
    }
    capitals[0xFF] = '\xDF'; // the Cyrillic ya
    const CodePage cyrillic(capitals);
    EXPECT_TRUE(equalIgnoringCase("\xFF", "\xDF", cyrillic));
    EXPECT_FALSE(equalIgnoringCase("\xE9", "\xC9", cyrillic));
    EXPECT_FALSE(equalIgnoringCase("\xFF", "\x9F", cyrillic)); // alike in the western one
    EXPECT_TRUE(equalIgnoringCase("\xFF", "\x9F", CodePage(CodePage::western)));
}

} // namespace
} // namespace tarnwick
