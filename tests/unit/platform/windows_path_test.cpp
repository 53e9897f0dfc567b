#include "platform/windows_path.hpp"

#include <gtest/gtest.h>

#include <string>

namespace tarnwick {
namespace {

TEST(WindowsPath, A_colon_stands_only_behind_the_letter_of_a_drive) {
    EXPECT_TRUE(isPossiblePath("C:x"));
    EXPECT_TRUE(isPossiblePath("c:\\x"));
    EXPECT_FALSE(isPossiblePath("\\:x"));
    EXPECT_FALSE(isPossiblePath("/:x"));
    EXPECT_FALSE(isPossiblePath("1:x"));
    EXPECT_FALSE(isPossiblePath("C:\\x:y"));
}

TEST(WindowsPath, The_last_part_begins_behind_a_drive_but_not_behind_another_colon) {
    EXPECT_EQ(lastPart("C:x"), "x");
    EXPECT_EQ(lastPart("1:x"), "1:x");
}

// In each of them the second byte of the letter is a backslash.
struct Page {
    unsigned number;
    std::string letter;
};
const Page pages[] = {{932, "\x95\x5C"}, {936, "\x81\x5C"}, {950, "\xA5\x5C"}};

TEST(WindowsPath, A_letter_that_ends_in_the_byte_of_a_backslash_separates_nothing) {
    for (const auto& [number, letter] : pages) {
        const CodePage page(number);
        const std::string folder = "C:\\" + letter;
        const std::string path = folder + "\\" + letter + ".met";
        EXPECT_EQ(GetFileName(path, page), letter + ".met") << number;
        EXPECT_EQ(GetFolderPath(path, page), folder) << number;
        EXPECT_EQ(GetBaseName(path, page), letter) << number;
        EXPECT_EQ(lastPart(path, page), letter + ".met") << number;
        EXPECT_EQ(GetFileName(letter, page), letter) << number;
        EXPECT_FALSE(hasBackslash(letter, page)) << number;
        EXPECT_TRUE(hasBackslash(path, page)) << number;
        EXPECT_EQ(withBackslash(folder, page), folder + "\\") << number;
        EXPECT_EQ(withBackslash(folder + "\\", page), folder + "\\") << number;
        EXPECT_EQ(joinPath(folder, letter, ".x", page), folder + "\\" + letter + ".x") << number;
    }
}

TEST(WindowsPath, In_other_code_pages_the_same_bytes_do) {
    for (const unsigned number : {1252U, 949U, CodePage::utf8}) {
        const CodePage page(number);
        const std::string bytes = number == 949 ? "\x80\x5C" : "\x95\x5C";
        EXPECT_EQ(GetFileName("C:\\" + bytes + "x", page), "x") << number;
        EXPECT_EQ(GetFolderPath("C:\\" + bytes + "x", page), "C:\\" + bytes.substr(0, 1)) << number;
        EXPECT_EQ(withBackslash(bytes, page), bytes) << number;
        EXPECT_TRUE(hasBackslash(bytes, page)) << number;
    }
}

TEST(WindowsPath, A_second_byte_is_no_forbidden_character) {
    for (const unsigned number : {932U, 936U, 950U}) {
        const CodePage page(number);
        EXPECT_TRUE(isPossiblePath("C:\\\x83|.met", page)) << number;
        EXPECT_TRUE(isPossiblePattern("C:\\\x83|*.met", page)) << number;
        EXPECT_FALSE(isPossiblePath("C:\\\x83||.met", page)) << number;
        EXPECT_FALSE(isPossiblePath("C:\\a\x01.met", page)) << number;
    }
    EXPECT_FALSE(isPossiblePath("C:\\\x83|.met", CodePage(CodePage::western)));
    EXPECT_FALSE(isPossiblePath("C:\\\x83|.met", CodePage(CodePage::utf8)));
}

} // namespace
} // namespace tarnwick
