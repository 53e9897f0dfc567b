#include "tool_test.hpp"

namespace demo {
namespace {

// Every output of both tools, on a file that is no record.
class MalformedInput : public ToolTest {
  protected:
    void runBothOn(const std::string& content) {
        write("a.met", content);
        ASSERT_EQ(cns({"-l", "en", "-v", "-i", path("a.info"), "-e", path("a.lft"), "-o",
                       path("a.cns"), path("a.met")}),
                  0);
        for (const std::string input : {"a.met", "a.cns"}) {
            ASSERT_EQ(mp({"-l", "en", "-e", path(input + ".err"), "-t", path("a.txt"), "-h",
                          path("a.html"), "-f", path("a.faq"), "-s", path("a.sgml"), "-x",
                          path("a.xml"), "-d", path("a.dif"), "-fixdoc", path(input)}),
                      0);
        }
    }
    // The sentences of the error report on the file itself, without heading and counts.
    [[nodiscard]] std::string report() const {
        const auto whole = read("a.met.err");
        const auto begin = whole.find('\n') + 1;
        return whole.substr(begin, whole.rfind("Errors: ") - begin);
    }
};

constexpr std::string_view nothingThere = "Record: error: \"Identification\" is missing\r\n"
                                          "Record: error: \"Metadata\" is missing\r\n";

TEST_F(MalformedInput, An_empty_file_is_a_record_without_anything) {
    runBothOn("");
    EXPECT_EQ(report(), nothingThere);
    EXPECT_EQ(read("a.cns"), "");
    EXPECT_EQ(read("a.txt"), "");
    EXPECT_EQ(read("a.xml"), "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\r\n<record>\r\n"
                             "</record>\r\n");
}

TEST_F(MalformedInput, Lone_carriage_returns_and_blanks_are_empty_lines) {
    runBothOn("\r\r   \r\n\n\t\r");
    EXPECT_EQ(report(), nothingThere);
}

TEST_F(MalformedInput, Bytes_without_any_order_are_stray_text) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i) {
        bytes += static_cast<char>(i % 256);
    }
    runBothOn(bytes);
    EXPECT_TRUE(report().starts_with("Line 1: error: text outside of an element\r\n"));
    EXPECT_TRUE(report().ends_with(nothingThere));
}

TEST_F(MalformedInput, A_line_of_ten_megabytes_is_told_and_a_long_text_kept) {
    constexpr std::size_t size = std::size_t{10} * 1024 * 1024;
    runBothOn(std::string(size, 'x'));
    EXPECT_EQ(report(), "Line 1: warning: the line is longer than 1000 characters\r\n"
                        "Line 1: error: text outside of an element\r\n" +
                            std::string(nothingThere));
    const std::string title(size / 10, ':');
    runBothOn("Title: " + title);
    EXPECT_EQ(read("a.xml"), "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\r\n<record>\r\n"
                             "  <Identification>\r\n    <Citation>\r\n      <Title>" +
                                 title +
                                 "</Title>\r\n    </Citation>\r\n  </Identification>\r\n"
                                 "</record>\r\n");
}

TEST_F(MalformedInput, Ever_deeper_elements_do_not_nest_without_end) {
    std::string steps;
    for (std::size_t depth = 0; depth < 2000; ++depth) {
        steps.append(depth, ' ').append(depth % 2 == 0 ? "Extent:\n" : "Quality:\n");
    }
    runBothOn(steps);
    EXPECT_EQ(read("a.cns"), "Identification:\r\n  Extent:\r\nQuality:\r\n");
}

TEST_F(MalformedInput, A_name_of_more_than_64_characters_is_text) {
    runBothOn(std::string(64, 'n') + ": a\n" + std::string(65, 'n') + ": a\n: a\n \t: a\n");
    EXPECT_EQ(report(), "Line 1: error: unknown element \"" + std::string(64, 'n') +
                            "\"\r\nLine 2: error: text outside of an element\r\n" +
                            std::string(nothingThere));
}

} // namespace
} // namespace demo
