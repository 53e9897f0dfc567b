#include "demo/tools/messages.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>

namespace demo {
namespace {

constexpr std::array languages{Language::English, Language::Spanish, Language::Catalan,
                               Language::Indonesian, Language::French};

Message messageAt(std::size_t number) {
    return static_cast<Message>(number);
}

std::multiset<char> placesOf(std::string_view text) {
    std::multiset<char> places;
    for (std::size_t i = 0; i + 2 < text.size(); ++i) {
        if (text[i] == '{' && text[i + 2] == '}') {
            places.insert(text[i + 1]);
        }
    }
    return places;
}

TEST(Messages, Every_language_has_every_message_with_the_same_places) {
    for (std::size_t number = 0; number < messageCount; ++number) {
        const auto english = textOf(messageAt(number), Language::English);
        for (const auto language : languages) {
            const auto text = textOf(messageAt(number), language);
            EXPECT_FALSE(text.empty()) << english << codeOf(language);
            EXPECT_EQ(placesOf(text), placesOf(english)) << english << codeOf(language);
            EXPECT_EQ(std::ranges::count(text, '{'), std::ranges::count(english, '{'));
            EXPECT_EQ(std::ranges::count(text, '}'), std::ranges::count(english, '}'));
        }
    }
}

// A word or two may be the same by chance ("Errors: {0}."), a sentence is not.
TEST(Messages, The_messages_are_translated) {
    for (const auto language : languages) {
        std::size_t same = 0;
        for (std::size_t number = 0; number < messageCount; ++number) {
            same +=
                textOf(messageAt(number), language) == textOf(messageAt(number), Language::English)
                    ? 1U
                    : 0U;
        }
        EXPECT_EQ(same, language == Language::English ? messageCount : 0U) << codeOf(language);
    }
}

// In UTF-8 a letter beyond ASCII begins with C3 or C2; in code page 1252 those are capitals with a
// tilde or circumflex, which none of the five languages uses here.
TEST(Messages, Letters_beyond_ASCII_are_single_bytes) {
    for (std::size_t number = 0; number < messageCount; ++number) {
        for (const auto language : languages) {
            EXPECT_EQ(textOf(messageAt(number), language).find_first_of("\xC2\xC3"),
                      std::string_view::npos)
                << number << codeOf(language);
        }
    }
    EXPECT_EQ(textOf(Message::AskWhy, Language::Spanish), "\xBFPara qu\xE9 se hizo?");
}

TEST(Messages, A_language_has_a_code_that_may_be_written_in_any_case) {
    for (const auto language : languages) {
        EXPECT_EQ(languageOfCode(codeOf(language)), language);
    }
    EXPECT_EQ(languageOfCode("FR"), Language::French);
    EXPECT_EQ(languageOfCode("German"), std::nullopt);
    EXPECT_EQ(languageOfCode(""), std::nullopt);
}

TEST(Messages, Values_take_their_places_and_are_not_searched_for_more) {
    EXPECT_EQ(say(Language::English, Message::BelongsUnder, {"{1}", "{0}"}),
              R"("{1}" belongs under "{0}")");
    EXPECT_EQ(say(Language::Catalan, Message::OptionMissing, {"-l"}), "falta l'opci\xF3 \"-l\"");
}

} // namespace
} // namespace demo
