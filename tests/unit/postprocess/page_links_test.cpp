#include "postprocess/page_links.hpp"
#include "support/hosted_world.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace tarnwick {
namespace {

PageRule::Link link(std::string_view from, std::string_view to) {
    return {.from = "HREF=\"" + std::string(from) + '"', .to = "HREF=\"" + std::string(to) + '"'};
}

const PageRule rule{.links = {link("C:\\out\\rec_faq.htm", "rec_faq.htm"),
                              link("C:\\text\\rec.txt", "../text/rec.txt")},
                    .ownPath = "C:\\out\\rec.html",
                    .ownName = "rec.html"};

// Gives its text in pieces of at most `piece` bytes, and remembers the longest that was asked for.
class TextFile : public InputFile {
  public:
    explicit TextFile(std::string_view text,
                      std::size_t piece = std::numeric_limits<std::size_t>::max())
        : rest_(text), piece_(piece) {}
    std::size_t read(std::span<char> buffer) override {
        longest = std::max(longest, buffer.size());
        const auto count = std::min({buffer.size(), piece_, rest_.size()});
        rest_.copy(buffer.data(), count);
        rest_.remove_prefix(count);
        return count;
    }

    std::size_t longest = 0;

  private:
    std::string_view rest_;
    std::size_t piece_;
};

class TextSink : public OutputFile {
  public:
    void write(std::string_view bytes) override { text += bytes; }
    void drain() override {}
    void flush() override {}
    void close() override {}

    std::string text;
};

std::string rewritten(std::string_view page,
                      std::size_t piece = std::numeric_limits<std::size_t>::max(),
                      const PageRule& byRule = rule) {
    TextFile file(page, piece);
    TextSink sink;
    rewriteLinks(file, sink, byRule);
    return sink.text;
}

constexpr std::string_view faqLink = "HREF=\"C:\\out\\rec_faq.htm\"";
constexpr std::string_view textLink = "HREF=\"C:\\text\\rec.txt\"";

TEST(PageLinks, Each_link_of_a_line_becomes_relative) {
    EXPECT_EQ(rewritten("<A HREF=\"C:\\out\\rec_faq.htm\">f</A>, <A HREF=\"C:\\text\\rec.txt\">"),
              "<A HREF=\"rec_faq.htm\">f</A>, <A HREF=\"../text/rec.txt\">");
    EXPECT_EQ(rewritten("HREF=\"C:\\text\\rec.txt\"HREF=\"C:\\out\\rec_faq.htm\""),
              "HREF=\"../text/rec.txt\"HREF=\"rec_faq.htm\"");
}

TEST(PageLinks, A_line_with_the_same_link_twice_has_only_the_first_occurrence_changed) {
    const std::string line = std::string(faqLink) + ' ' + std::string(faqLink);
    EXPECT_EQ(rewritten(line), "HREF=\"rec_faq.htm\" " + std::string(faqLink));
    EXPECT_EQ(rewritten(line + '\n' + line + "\r\n"),
              "HREF=\"rec_faq.htm\" " + std::string(faqLink) + "\nHREF=\"rec_faq.htm\" " +
                  std::string(faqLink) + "\r\n");
}

TEST(PageLinks, A_link_marker_in_lower_case_or_a_path_in_other_case_is_not_matched) {
    for (const std::string_view line :
         {"<a href=\"C:\\out\\rec_faq.htm\">", "<a HREF=\"c:\\out\\rec_faq.htm\">",
          "<a HREF = \"C:\\out\\rec_faq.htm\">", "<a HREF=C:\\out\\rec_faq.htm>",
          "<a HREF=\"C:\\out\\rec_faq.html\">", "<a HREF=\"C:\\out\\rec_faq.htm"}) {
        EXPECT_EQ(rewritten(line), line);
    }
}

TEST(PageLinks, Later_targets_are_searched_in_the_line_as_already_changed) {
    // Two outputs of one path: the first target takes the first occurrence, the other the second.
    const PageRule twice{
        .links = {link("C:\\x", "1"), link("C:\\x", "2")}, .ownPath = "C:\\p", .ownName = "p"};
    std::string line = "HREF=\"C:\\x\" HREF=\"C:\\x\" HREF=\"C:\\x\"";
    rewriteLine(line, twice);
    EXPECT_EQ(line, "HREF=\"1\" HREF=\"2\" HREF=\"C:\\x\"");
    // What the first target leaves behind can be what the second one is looking for.
    const PageRule chain{.links = {link("C:\\a", "C:\\b"), link("C:\\b", "end")},
                         .ownPath = "C:\\p",
                         .ownName = "p"};
    line = "HREF=\"C:\\a\"";
    rewriteLine(line, chain);
    EXPECT_EQ(line, "HREF=\"end\"");
}

TEST(PageLinks, A_base_line_names_the_page_itself) {
    EXPECT_EQ(rewritten("<base href=\"C:\\out\\rec.html\">\r\n"), "<base href=\"rec.html\">\r\n");
}

TEST(PageLinks, A_base_line_in_capitals_and_behind_blanks_counts) {
    EXPECT_EQ(rewritten("   <BASE HREF=\"C:\\out\\rec.html\">  "), "   <BASE HREF=\"rec.html\">  ");
}

TEST(PageLinks, What_does_not_begin_with_a_base_tag_is_no_base_line) {
    for (const std::string_view line :
         {"<p><base href=\"C:\\out\\rec.html\">", "\t<base href=\"C:\\out\\rec.html\">",
          "<base  href=\"C:\\out\\rec.html\">", "C:\\out\\rec.html", "<base hre C:\\out\\rec.html",
          "<base href=\"c:\\out\\rec.html\">"}) {
        EXPECT_EQ(rewritten(line), line);
    }
}

TEST(PageLinks, Of_several_paths_in_a_base_line_the_last_is_replaced) {
    EXPECT_EQ(rewritten("<base href=\"C:\\out\\rec.html\"> C:\\out\\rec.html C:\\out\\x"),
              "<base href=\"C:\\out\\rec.html\"> rec.html C:\\out\\x");
}

TEST(PageLinks, A_base_line_can_hold_links_too) {
    EXPECT_EQ(rewritten("<base href=C:\\out\\rec.html><A HREF=\"C:\\out\\rec_faq.htm\">"),
              "<base href=rec.html><A HREF=\"rec_faq.htm\">");
    EXPECT_EQ(rewritten("<base HREF=\"C:\\out\\rec_faq.htm\"> C:\\out\\rec.html"),
              "<base HREF=\"rec_faq.htm\"> rec.html");
}

TEST(PageLinks, A_line_ends_at_carriage_return_line_feed_or_both) {
    const std::string twice = std::string(faqLink).append(faqLink);
    const std::string changed = std::string("HREF=\"rec_faq.htm\"").append(faqLink);
    for (const std::string_view end : {"\n", "\r\n", "\r", "\n\r", "\r\r\n", "\n\n"}) {
        EXPECT_EQ(rewritten(std::string(twice).append(end).append(twice)),
                  std::string(changed).append(end).append(changed));
    }
}

TEST(PageLinks, Other_bytes_do_not_end_a_line) {
    for (const char byte : {'\t', '\f', '\v', '\0', '\x1A', '\x85', '\xA0', '\xE9'}) {
        const std::string rest = std::string(1, byte).append(faqLink);
        EXPECT_EQ(rewritten(std::string(faqLink).append(rest)),
                  std::string("HREF=\"rec_faq.htm\"").append(rest));
    }
}

TEST(PageLinks, Every_byte_that_is_not_replaced_is_kept) {
    std::string bytes;
    for (int code = 0; code < 256; ++code) {
        bytes += static_cast<char>(code);
    }
    const std::string page = bytes + std::string(textLink) + bytes + "\r\n" + bytes;
    EXPECT_EQ(rewritten(page), bytes + "HREF=\"../text/rec.txt\"" + bytes + "\r\n" + bytes);
}

TEST(PageLinks, A_final_line_end_is_neither_added_nor_lost) {
    for (const std::string_view end : {"", "\n", "\r\n", "\r", "\r\n\r\n"}) {
        EXPECT_EQ(rewritten(std::string(faqLink) + std::string(end)),
                  "HREF=\"rec_faq.htm\"" + std::string(end));
        EXPECT_EQ(rewritten("text" + std::string(end)), "text" + std::string(end));
        EXPECT_EQ(rewritten(end), end);
    }
}

TEST(PageLinks, However_the_page_is_read_the_result_is_the_same) {
    std::string page;
    for (int i = 0; i < 60; ++i) {
        page += std::string(static_cast<std::size_t>(i * 7 % 31), 'x') + std::string(faqLink) +
                (i % 3 == 0   ? "\r\n"
                 : i % 3 == 1 ? "\n"
                              : " \\ ") +
                std::string(textLink) + "\r\n";
    }
    page += "<base href=\"C:\\out\\rec.html\">";
    const std::string whole = rewritten(page);
    EXPECT_NE(whole, page);
    for (const std::size_t piece : {1UZ, 2UZ, 3UZ, 5UZ, 17UZ, 64UZ, 1000UZ}) {
        EXPECT_EQ(rewritten(page, piece), whole) << piece;
    }
}

TEST(PageLinks, Paths_may_have_much_or_nothing_in_common) {
    const std::vector<PageRule> rules{
        {.links = {link("/srv/out/rec.txt", "t")}, .ownPath = "/srv/out/rec.html", .ownName = "r"},
        {.links = {link("/a/rec.txt", "t")}, .ownPath = "/b/rec.html", .ownName = "r"},
        {.links = {link("C:\\x\\.txt", "t")}, .ownPath = "D:\\x\\_faq.htm", .ownName = "r"},
        {.links = {}, .ownPath = "/srv/rec.html", .ownName = "r"}};
    for (const PageRule& each : rules) {
        std::string page = "</p>\r\n\n\r";
        std::string expected = page;
        for (const std::string_view end : {"\r\n", "\n\n", "\r"}) {
            page.append("<base href=\"" + each.ownPath + "\">").append(end);
            expected.append("<base href=\"r\">").append(end);
            for (const auto& [from, to] : each.links) {
                page.append(from).append(end).append("<p>x</p>").append(end);
                expected.append(to).append(end).append("<p>x</p>").append(end);
            }
        }
        EXPECT_EQ(rewritten(page, 3, each), expected) << each.ownPath;
        EXPECT_EQ(rewritten(page + each.ownPath, 1000, each), expected + each.ownPath);
    }
}

TEST(PageLinks, A_line_may_be_longer_than_any_block) {
    const std::string filler(3'000'000, 'y');
    const std::string page = "a\r\n" + filler + std::string(faqLink) + filler +
                             std::string(faqLink) + "\r\n" + std::string(textLink);
    const std::string expected = "a\r\n" + filler + "HREF=\"rec_faq.htm\"" + filler +
                                 std::string(faqLink) + "\r\nHREF=\"../text/rec.txt\"";
    EXPECT_TRUE(rewritten(page) == expected);
    EXPECT_TRUE(rewritten(page, 4096) == expected);
}

// A page of any length that nobody has to keep.
class EndlessPage : public InputFile {
  public:
    explicit EndlessPage(std::size_t length) : left_(length) {}
    std::size_t read(std::span<char> buffer) override {
        longest = std::max(longest, buffer.size());
        const auto count = std::min(buffer.size(), left_);
        for (std::size_t i = 0; i < count; ++i) {
            buffer[i] = lines[at_++ % lines.size()];
        }
        left_ -= count;
        return count;
    }

    std::size_t longest = 0;

  private:
    static constexpr std::string_view lines =
        "<p>text</p>\r\n<A HREF=\"C:\\out\\rec_faq.htm\">f</A>\r\n";
    std::size_t left_;
    std::size_t at_ = 0;
};

class CountingSink : public OutputFile {
  public:
    void write(std::string_view bytes) override {
        longest = std::max(longest, bytes.size());
        written += bytes.size();
    }
    void drain() override {}
    void flush() override {}
    void close() override {}

    std::size_t longest = 0;
    std::size_t written = 0;
};

TEST(PageLinks, No_more_of_a_long_page_is_held_than_of_a_short_one) {
    std::size_t held = 0;
    for (const std::size_t length : {1UZ << 20, 1UZ << 24}) {
        EndlessPage page(length);
        CountingSink sink;
        rewriteLinks(page, sink, rule);
        EXPECT_LT(sink.written, length - length / 10);
        EXPECT_GT(sink.written, length / 2);
        EXPECT_LE(page.longest, 1UZ << 16);
        EXPECT_LE(sink.longest, page.longest);
        EXPECT_TRUE(held == 0 || held == page.longest);
        held = page.longest;
    }
}

} // namespace
} // namespace tarnwick
