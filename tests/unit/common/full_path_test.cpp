#include "common/full_path.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace tarnwick {
namespace {

using testing::ElementsAre;

TEST(FullPath, The_second_byte_of_a_character_is_no_backslash) {
    for (const auto& [number, bytes] :
         {std::pair(932U, "\x95\x5C"), std::pair(936U, "\x81\x5C"), std::pair(950U, "\xA5\x5C")}) {
        const CodePage page(number);
        const std::string letter = bytes;
        EXPECT_EQ(fullPath("..\\x", "C:\\" + letter + "\\in", page), "C:\\" + letter + "\\x");
        EXPECT_EQ(fullPath(letter, "C:\\" + letter, page), "C:\\" + letter + "\\" + letter);
        EXPECT_EQ(fullPath("\\x", "\\\\" + letter + "\\" + letter + "\\in", page),
                  "\\\\" + letter + "\\" + letter + "\\x");
        EXPECT_THAT(foldersOnTheWay("C:\\" + letter + "\\b", page),
                    ElementsAre("C:\\", letter, "b"));
    }
}

TEST(FullPath, In_a_share_the_root_is_the_share) {
    EXPECT_EQ(fullPath("\\a", "\\\\server\\share\\in"), "\\\\server\\share\\a");
    EXPECT_EQ(fullPath("..\\..\\a", "\\\\server\\share\\in"), "\\\\server\\share\\a");
    EXPECT_EQ(fullPath("\\\\server", ""), "\\\\server");
    EXPECT_THAT(foldersOnTheWay("\\\\server\\share\\a"), ElementsAre("\\\\server\\share", "a"));
}

} // namespace
} // namespace tarnwick
