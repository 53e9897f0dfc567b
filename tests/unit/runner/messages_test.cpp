#include "runner/messages.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <span>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto everything = std::numeric_limits<std::uint64_t>::max();

// Gives a text in pieces of so many bytes.
class TextInPieces final : public InputFile {
  public:
    TextInPieces(std::string text, std::size_t piece) : text_(std::move(text)), piece_(piece) {}
    std::size_t read(std::span<char> buffer) override {
        const auto count = std::min({piece_, buffer.size(), text_.size() - at_});
        std::ranges::copy(std::string_view(text_).substr(at_, count), buffer.begin());
        at_ += count;
        return count;
    }

  private:
    std::string text_;
    std::size_t piece_;
    std::size_t at_ = 0;
};

// A line again and again, without a file that holds it.
class EndlessLine final : public InputFile {
  public:
    EndlessLine(char character, std::uint64_t bytes) : character_(character), bytes_(bytes) {}
    std::size_t read(std::span<char> buffer) override {
        const auto count = std::min<std::uint64_t>(buffer.size(), bytes_);
        std::ranges::fill(buffer.first(count), character_);
        bytes_ -= count;
        return count;
    }

  private:
    char character_;
    std::uint64_t bytes_;
};

RecordMessages messagesOf(const std::string& text, const MessagePatterns& patterns = {},
                          std::size_t piece = 4096) {
    RecordMessages messages;
    TextInPieces file(text, piece);
    readMessages(file, everything, patterns, messages);
    return messages;
}

TEST(Messages, Are_the_lines_that_are_not_blank_whatever_ends_them) {
    for (const std::size_t piece : {1UZ, 2UZ, 3UZ, 4096UZ}) {
        EXPECT_THAT(messagesOf("first\r\n\r\n \t third \n\nfifth\rsixth", {}, piece).kept,
                    ElementsAre(ToolMessage{.line = 1, .text = "first"},
                                ToolMessage{.line = 3, .text = "third"},
                                ToolMessage{.line = 5, .text = "fifth"},
                                ToolMessage{.line = 6, .text = "sixth"}))
            << piece;
    }
    EXPECT_THAT(messagesOf("").kept, IsEmpty());
    EXPECT_THAT(messagesOf("\r\n \r\n").kept, IsEmpty());
}

TEST(Messages, Are_cut_visibly_where_they_are_long) {
    const std::string longest(longestMessage, 'x');
    EXPECT_EQ(messagesOf("  " + longest + "   \n").kept.front().text, longest);
    const std::string cut = std::string(longestMessage - 3, 'x') + "...";
    EXPECT_EQ(messagesOf(longest + "x\n").kept.front().text, cut);
    EXPECT_EQ(messagesOf(longest + "    x\n").kept.front().text, cut);
    EXPECT_EQ(messagesOf(std::string(longestMessage - 1, 'x') + "    x\n").kept.front().text, cut);
    EXPECT_EQ(messagesOf(std::string(longestMessage - 1, 'x') + "  \n").kept.front().text.size(),
              longestMessage - 1);
}

TEST(Messages, Of_more_than_are_kept_it_is_known_how_many) {
    std::string text;
    for (std::size_t line = 1; line <= mostMessages + 1234; ++line) {
        text += std::to_string(line) + "\n\n";
    }
    const RecordMessages messages = messagesOf(text);
    ASSERT_EQ(messages.kept.size(), mostMessages);
    EXPECT_EQ(messages.kept.back(),
              (ToolMessage{.line = (2 * mostMessages) - 1, .text = std::to_string(mostMessages)}));
    EXPECT_EQ(messages.leftOut, 1234U);
}

TEST(Messages, That_are_ignored_take_no_place_of_others) {
    std::string text;
    for (std::size_t line = 0; line < mostMessages + 5; ++line) {
        text += "noise\n";
    }
    const RecordMessages messages =
        messagesOf(text + "real\n", {.ignore = {"NOISE*"}, .failOn = {}});
    ASSERT_EQ(messages.kept.size(), mostMessages + 1); // for who asks without that pattern
    EXPECT_EQ(messages.kept.back(), (ToolMessage{.line = mostMessages + 6, .text = "real"}));
    EXPECT_EQ(messages.leftOut, 0U);
    EXPECT_TRUE(messages.isPart);
}

TEST(Messages, It_is_known_whether_something_of_them_is_missing) {
    const std::string longest(longestMessage, 'x');
    const std::string most = [] {
        std::string text;
        for (std::size_t line = 0; line < mostMessages; ++line) {
            text += "x\n";
        }
        return text;
    }();
    const MessagePatterns patterns{.ignore = {}, .failOn = {"bad"}};
    for (const MessagePatterns& each : {MessagePatterns(), patterns}) {
        const RecordMessages whole = messagesOf(most, each);
        EXPECT_EQ(whole.leftOut, 0U);
        EXPECT_FALSE(whole.isPart);
        EXPECT_FALSE(messagesOf(longest + "  \n", each).isPart);
        EXPECT_TRUE(messagesOf(longest + "x\n", each).isPart);
        const RecordMessages more = messagesOf(most + "one\n" + longest + "x\n", each);
        EXPECT_EQ(more.leftOut, 2U);
        EXPECT_TRUE(more.isPart);
    }
}

// Two bytes of a character are one byte of the program's page: what looks short has lost its end.
TEST(Messages, Of_another_code_page_are_cut_visibly_too) {
    RecordMessages messages;
    TextInPieces file(std::string(4 * longestMessage, 'x'), 4096);
    readMessages(file, everything, {}, messages,
                 [](std::string_view text) { return std::string(text.size() / 2, 'y'); });
    EXPECT_EQ(messages.kept.front().text, std::string(longestMessage - 3, 'y') + "...");
    EXPECT_TRUE(messages.isPart);
}

TEST(Messages, Of_two_files_stand_behind_each_other) {
    RecordMessages messages;
    TextInPieces leftovers("a", 9);
    TextInPieces errors("b", 9);
    readMessages(leftovers, everything, {}, messages);
    readMessages(errors, everything, {}, messages);
    EXPECT_THAT(messages.kept, ElementsAre(ToolMessage{.line = 1, .text = "a"},
                                           ToolMessage{.line = 1, .text = "b"}));
}

TEST(Messages, Behind_the_size_that_a_report_had_are_not_followed) {
    RecordMessages messages;
    TextInPieces file("one\ntwo\nthree", 2);
    readMessages(file, 6, {}, messages);
    EXPECT_THAT(messages.kept, ElementsAre(ToolMessage{.line = 1, .text = "one"},
                                           ToolMessage{.line = 2, .text = "tw"}));
}

TEST(Messages, Fail_also_by_what_is_not_kept_of_a_long_line) {
    const auto messages =
        messagesOf(std::string(5000, 'x') + " FATAL broken", {.ignore = {}, .failOn = {"*fatal*"}});
    EXPECT_EQ(messages.failing.size(), longestMessage);
    EXPECT_EQ(messages.kept.front().text, messages.failing);
}

TEST(Messages, In_a_long_report_without_an_end_of_line_take_little_memory) {
    RecordMessages messages;
    EndlessLine endless('x', 50'000'000);
    readMessages(endless, everything, {}, messages);
    ASSERT_EQ(messages.kept.size(), 1U);
    EXPECT_EQ(messages.kept.front().text.size(), longestMessage);
    EXPECT_LE(messages.kept.front().text.capacity(), 2 * longestMessage + 64);
}

TEST(Messages, The_first_that_fails_the_record_is_told_even_if_it_is_not_kept) {
    std::string text = "Fine.\n";
    for (std::size_t line = 0; line < mostMessages; ++line) {
        text += "noise\n";
    }
    const MessagePatterns patterns{.ignore = {}, .failOn = {"*MISSING*", "*wrong*"}};
    EXPECT_EQ(messagesOf(text, patterns).failing, "");
    EXPECT_EQ(messagesOf(text + "it is wrong\nit is missing\n", patterns).failing, "it is wrong");
}

TEST(MessagePatterns, Mean_the_whole_message_without_regard_to_case) {
    const MessagePatterns patterns{.ignore = {}, .failOn = {"error*date"}};
    EXPECT_TRUE(patterns.fails("ERROR: no Date"));
    EXPECT_FALSE(patterns.fails("an error: no date"));
    EXPECT_FALSE(patterns.fails("error: no date here"));
}

TEST(MessagePatterns, A_dot_at_the_end_is_no_part_of_either) {
    const MessagePatterns patterns{.ignore = {}, .failOn = {"Errors: 0. Warnings: ?."}};
    EXPECT_TRUE(patterns.fails("Errors: 0. Warnings: 3."));
    EXPECT_TRUE(patterns.fails("Errors: 0. Warnings: 3"));
    EXPECT_FALSE(patterns.fails("Errors: 1. Warnings: 3."));
}

TEST(MessagePatterns, What_is_ignored_fails_nothing) {
    const MessagePatterns patterns{.ignore = {"*harmless*"}, .failOn = {"error*"}};
    EXPECT_TRUE(patterns.fails("error: bad"));
    EXPECT_FALSE(patterns.fails("error: harmless"));
    EXPECT_TRUE(patterns.isIgnored("a HARMLESS one"));
    EXPECT_FALSE(patterns.isIgnored("error: bad"));
    EXPECT_FALSE(MessagePatterns().isIgnored(""));
    EXPECT_FALSE(MessagePatterns().fails("x"));
}

TEST(MessagePatterns, Are_known_by_their_mark_in_any_order) {
    const MessagePatterns patterns{.ignore = {"c"}, .failOn = {"a", "b"}};
    EXPECT_EQ(patterns.mark(), (MessagePatterns{.ignore = {"c"}, .failOn = {"b", "a"}}).mark());
    EXPECT_NE(patterns.mark(), (MessagePatterns{.ignore = {}, .failOn = {"a", "b"}}).mark());
    EXPECT_NE(patterns.mark(), (MessagePatterns{.ignore = {"b", "c"}, .failOn = {"a"}}).mark());
    EXPECT_NE(patterns.mark(), (MessagePatterns{.ignore = {"c"}, .failOn = {"ab"}}).mark());
    EXPECT_NE(patterns.mark(), 0U);
    EXPECT_EQ((MessagePatterns{.ignore = {"c"}, .failOn = {}}).mark(), 0U);
}

} // namespace
} // namespace tarnwick
