#include "platform/tool_command_line.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

std::wstring lineOf(const std::vector<std::wstring>& arguments) {
    const std::wstring line = commandLineOf(L"mp", arguments);
    EXPECT_TRUE(line.starts_with(LR"("mp" )"));
    return line.substr(5);
}

TEST(ToolCommandLine, The_program_comes_first_in_quotation_marks) {
    EXPECT_EQ(commandLineOf(LR"(C:\My tools\mp.exe)", {}), LR"("C:\My tools\mp.exe")");
    EXPECT_EQ(commandLineOf(LR"(C:\folder\)", {}), LR"("C:\folder\")");
}

TEST(ToolCommandLine, An_argument_of_one_word_stays_as_it_is) {
    EXPECT_EQ(lineOf({L"-l", L"en", LR"(C:\in\100%^&!\a'b.met)"}),
              LR"(-l en C:\in\100%^&!\a'b.met)");
    EXPECT_EQ(lineOf({LR"(C:\in\)"}), LR"(C:\in\)");
    EXPECT_EQ(lineOf({LR"(\\server\share)"}), LR"(\\server\share)");
}

TEST(ToolCommandLine, An_argument_that_is_empty_or_holds_blanks_is_quoted) {
    EXPECT_EQ(lineOf({L"", L"a b", L"a\tb", L""}), L"\"\" \"a b\" \"a\tb\" \"\"");
}

TEST(ToolCommandLine, What_a_tool_could_take_for_a_pattern_is_quoted) {
    EXPECT_EQ(lineOf({L"*.met", L"a?"}), LR"("*.met" "a?")");
}

TEST(ToolCommandLine, A_quotation_mark_has_a_backslash_before_it) {
    EXPECT_EQ(lineOf({LR"(a"b)", LR"(")"}), LR"("a\"b" "\"")");
}

TEST(ToolCommandLine, Backslashes_are_doubled_before_a_quotation_mark_alone) {
    EXPECT_EQ(lineOf({LR"(C:\a b\)"}), LR"("C:\a b\\")");
    EXPECT_EQ(lineOf({LR"(\\server\a b)"}), LR"("\\server\a b")");
    EXPECT_EQ(lineOf({LR"(a\\"b)"}), LR"("a\\\\\"b")");
}

} // namespace
} // namespace tarnwick
