#include "common/line_reader.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Gives its bytes in pieces of one size, so that a line end can fall anywhere between them.
class PiecewiseFile : public InputFile {
  public:
    PiecewiseFile(std::string bytes, std::size_t piece) : bytes_(std::move(bytes)), piece_(piece) {}

    std::size_t read(std::span<char> buffer) override {
        const std::size_t length = std::min({piece_, buffer.size(), bytes_.size() - read_});
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(read_), length, buffer.begin());
        read_ += length;
        return length;
    }

  private:
    std::string bytes_;
    std::size_t piece_;
    std::size_t read_ = 0;
};

std::vector<std::string> linesOf(const std::string& bytes, LineEnds lineEnds,
                                 std::size_t piece = 1000) {
    PiecewiseFile file(bytes, piece);
    LineReader reader(file, lineEnds);
    std::vector<std::string> lines;
    while (const auto line = reader.next()) {
        lines.emplace_back(*line);
    }
    return lines;
}

TEST(LineReader, A_line_ends_at_a_carriage_return_with_or_without_a_line_feed) {
    EXPECT_THAT(linesOf("a\r\nb\rc", LineEnds::CarriageReturn), ElementsAre("a", "b", "c"));
}

TEST(LineReader, A_bare_line_feed_ends_a_line_only_where_any_end_is_wanted) {
    EXPECT_THAT(linesOf("a\nb\r\nc", LineEnds::CarriageReturn), ElementsAre("a\nb", "c"));
    EXPECT_THAT(linesOf("a\nb\r\nc", LineEnds::Any), ElementsAre("a", "b", "c"));
}

TEST(LineReader, Only_the_first_line_feed_behind_a_carriage_return_belongs_to_it) {
    EXPECT_THAT(linesOf("a\r\n\nb", LineEnds::CarriageReturn), ElementsAre("a", "\nb"));
    EXPECT_THAT(linesOf("a\r\n\nb", LineEnds::Any), ElementsAre("a", "", "b"));
}

TEST(LineReader, Empty_lines_count_but_nothing_behind_the_last_end_does_not) {
    EXPECT_THAT(linesOf("", LineEnds::Any), IsEmpty());
    EXPECT_THAT(linesOf("\r\n", LineEnds::Any), ElementsAre(""));
    EXPECT_THAT(linesOf("\r\r", LineEnds::Any), ElementsAre("", ""));
    EXPECT_THAT(linesOf("a\r\n", LineEnds::Any), ElementsAre("a"));
}

TEST(LineReader, It_makes_no_difference_where_one_block_ends_and_the_next_begins) {
    const std::string bytes = "one\r\ntwo\rthree\n\r\n\nfour";
    for (const LineEnds lineEnds : {LineEnds::Any, LineEnds::CarriageReturn}) {
        const auto lines = linesOf(bytes, lineEnds);
        for (std::size_t piece = 1; piece < bytes.size(); ++piece) {
            EXPECT_EQ(linesOf(bytes, lineEnds, piece), lines) << piece;
        }
    }
}

TEST(LineReader, Bytes_pass_through_untouched) {
    const std::string bytes("a\0b\x1A\xFF\t\f", 7);
    EXPECT_THAT(linesOf(bytes, LineEnds::Any), ElementsAre(bytes));
}

TEST(LineReader, A_line_may_be_longer_than_any_block) {
    const std::string longLine(std::size_t{300} * 1024, 'x');
    EXPECT_THAT(linesOf(longLine + "\r\nb", LineEnds::Any, longLine.size()),
                ElementsAre(longLine, "b"));
}

TEST(LineReader, Of_a_line_that_is_longer_than_wanted_the_beginning_is_seen) {
    PiecewiseFile file("12345\r\n123456\n" + std::string(std::size_t{300} * 1024, 'x') + "\n1", 3);
    LineReader reader(file, LineEnds::Any, 5);
    for (const char* const line : {"12345", "12345", "xxxxx", "1"}) {
        EXPECT_EQ(reader.next(), line);
    }
    EXPECT_EQ(reader.next(), std::nullopt);
}

} // namespace
} // namespace tarnwick
