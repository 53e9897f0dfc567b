#include "processing/command_line.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

CommandLine parsed(std::string_view text) {
    return parseCommandLine(text).value_or(CommandLine{});
}

TEST(CommandLineText, All_four_options_are_understood) {
    EXPECT_EQ(parseCommandLine("-I a.ini -F C:\\in -e *.met;*.txt -n"),
              (CommandLine{.sINIFile = "a.ini",
                           .sInputFolder = "C:\\in",
                           .sInputExtensions = "*.met;*.txt",
                           .bNotify = true}));
}

TEST(CommandLineText, An_option_in_lower_case_works_like_its_capital) {
    EXPECT_EQ(parsed("-i settings.ini"), parsed("-I settings.ini"));
    EXPECT_EQ(parsed("-i settings.ini").sINIFile, "settings.ini");
}

TEST(CommandLineText, An_option_needs_no_blank_before_its_argument) {
    EXPECT_EQ(parsed("-Isettings.ini").sINIFile, "settings.ini");
}

TEST(CommandLineText, Quotation_marks_are_taken_out_of_the_ini_file_name_everywhere) {
    EXPECT_EQ(parsed("-I \"C:\\My Files\\a.ini\"").sINIFile, "C:\\My Files\\a.ini");
    EXPECT_EQ(parsed("-I C:\\\"My Files\"\\a.ini").sINIFile, "C:\\My Files\\a.ini");
}

TEST(CommandLineText, A_path_with_blank_and_hyphen_is_cut_there_even_between_quotation_marks) {
    // "-x" would be an unknown option; "- new" begins with an n.
    EXPECT_EQ(parseCommandLine("-I \"C:\\My Files - new\\a.ini\""),
              (CommandLine{.sINIFile = "C:\\My Files",
                           .sInputFolder = {},
                           .sInputExtensions = {},
                           .bNotify = true}));
    EXPECT_EQ(parseCommandLine("-I \"C:\\My Files -x\\a.ini\""), std::nullopt);
}

TEST(CommandLineText, A_question_mark_behind_a_blank_asks_for_help_wherever_it_stands) {
    EXPECT_EQ(parseCommandLine("?"), std::nullopt);
    EXPECT_EQ(parseCommandLine("-I a.ini ?"), std::nullopt);
    EXPECT_NE(parseCommandLine("-I a.ini -e *.m?t"), std::nullopt);
}

TEST(CommandLineText, Without_an_ini_file_option_help_is_shown) {
    EXPECT_EQ(parseCommandLine("a.ini"), std::nullopt);
    EXPECT_EQ(parseCommandLine("-F C:\\in -n"), std::nullopt);
}

TEST(CommandLineText, An_unknown_option_shows_the_help) {
    EXPECT_EQ(parseCommandLine("-I a.ini -x"), std::nullopt);
    EXPECT_EQ(parseCommandLine("-I a.ini /n -q z"), std::nullopt);
}

TEST(CommandLineText, Only_the_first_letter_of_an_option_counts) {
    EXPECT_TRUE(parsed("-I a.ini -notify").bNotify);
    EXPECT_TRUE(parsed("-I a.ini -Nothing at all").bNotify);
}

TEST(CommandLineText, What_stands_before_the_first_option_is_read_like_one) {
    EXPECT_EQ(parseCommandLine("xyz -I a.ini"), std::nullopt);
    EXPECT_EQ(parsed("f C:\\in -I a.ini").sInputFolder, "C:\\in");
}

TEST(CommandLineText, A_later_option_of_the_same_letter_replaces_the_earlier_one) {
    EXPECT_EQ(parsed("-I a.ini -I b.ini -e *.a -E *.b").sINIFile, "b.ini");
    EXPECT_EQ(parsed("-I a.ini -I b.ini -e *.a -E *.b").sInputExtensions, "*.b");
}

TEST(CommandLineText, Blanks_around_arguments_and_empty_options_do_not_count) {
    EXPECT_EQ(parsed("   -I   a b.ini   -  -F  C:\\in  "), (CommandLine{.sINIFile = "a b.ini",
                                                                        .sInputFolder = "C:\\in",
                                                                        .sInputExtensions = {},
                                                                        .bNotify = false}));
}

TEST(CommandLineText, Blanks_around_the_extensions_do_not_count) {
    EXPECT_EQ(parsed("-I a.ini -E   *.met;*.txt   ").sInputExtensions, "*.met;*.txt");
    EXPECT_EQ(parsed("-e   *.met   -I a.ini").sInputExtensions, "*.met");
}

TEST(CommandLineText, Folder_and_extensions_keep_their_quotation_marks_until_they_are_used) {
    EXPECT_EQ(parsed("-I a.ini -F \"C:\\my in\"").sInputFolder, "\"C:\\my in\"");
}

TEST(CommandLineText, An_ini_option_without_a_name_leaves_the_name_empty) {
    EXPECT_EQ(parseCommandLine("-I"), CommandLine{});
}

TEST(CommandLineText, A_hyphen_inside_a_word_begins_no_option) {
    EXPECT_EQ(parsed("-I my-batch.ini").sINIFile, "my-batch.ini");
}

} // namespace
} // namespace tarnwick
