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

TEST(GetFileName, It_is_what_follows_the_last_backslash) {
    EXPECT_EQ(GetFileName("C:\\data\\rec.txt"), "rec.txt");
    EXPECT_EQ(GetFileName("rec.txt"), "rec.txt");
    EXPECT_EQ(GetFileName("C:\\data\\"), "");
    EXPECT_EQ(GetFileName("C:\\data\\ rec.txt "), " rec.txt ");
}

TEST(GetFolderPath, It_is_what_stands_before_the_last_backslash) {
    EXPECT_EQ(GetFolderPath("C:\\data\\rec.txt"), "C:\\data");
    EXPECT_EQ(GetFolderPath("C:\\rec.txt"), "C:");
    EXPECT_EQ(GetFolderPath("rec.txt"), "");
}

TEST(GetBaseName, It_is_the_file_name_without_its_last_extension) {
    EXPECT_EQ(GetBaseName(" C:\\data\\rec.old.txt "), "rec.old");
    EXPECT_EQ(GetBaseName("noext"), "noext");
    EXPECT_EQ(GetBaseName(".cfg"), "");
    EXPECT_EQ(GetBaseName(""), "");
}

TEST(GetBaseName, Both_slashes_separate_folders) {
    EXPECT_EQ(GetBaseName("a/b\\c.xml"), "c");
    EXPECT_EQ(GetBaseName("a\\b/c.xml"), "c");
}

TEST(GetBaseName, Blanks_around_every_part_are_dropped) {
    EXPECT_EQ(GetBaseName("a\\ b / c.xml "), "c");
    EXPECT_EQ(GetBaseName("a\\ c .xml"), "c ");
}

TEST(WindowsPath, A_backslash_joins_folder_and_name_only_when_the_folder_does_not_end_in_one) {
    EXPECT_EQ(joinPath("D:\\Out", "rec1.err"), "D:\\Out\\rec1.err");
    EXPECT_EQ(joinPath("D:\\Out\\", "rec1.err"), "D:\\Out\\rec1.err");
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
