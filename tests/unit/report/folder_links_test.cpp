#include "report/folder_links.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(LinksToFolders, Are_relative_wherever_both_can_move_together) {
    EXPECT_EQ(linkToFolder("/srv/meta/", "/srv/meta/out/html/", '/'), "out/html/");
    EXPECT_EQ(linkToFolder("/srv/reports", "/srv/meta/out", '/'), "../meta/out/");
    EXPECT_EQ(linkToFolder("/a/b/c", "/a", '/'), "../../");
    EXPECT_EQ(linkToFolder("/a/b", "/a/b/", '/'), "./");
    EXPECT_EQ(linkToFolder("/", "/out", '/'), "out/");
    EXPECT_EQ(linkToFolder("/a/B", "/a/b", '/'), "../b/"); // two folders
    EXPECT_EQ(linkToFolder("D:\\Meta\\reports\\", "d:\\meta\\out\\", '\\'), "../out/");
    EXPECT_EQ(linkToFolder(R"(\\srv\share\r)", R"(\\SRV\share\out\)", '\\'), "../out/");
}

TEST(LinksToFolders, Are_absolute_where_no_relative_one_leads) {
    EXPECT_EQ(linkToFolder("C:\\reports", "D:\\my out", '\\'), "file:///D:/my%20out/");
    EXPECT_EQ(linkToFolder("C:\\reports", R"(\\srv\share\out)", '\\'), "file://srv/share/out/");
    EXPECT_EQ(linkToFolder(R"(\\srv\share\r)", "D:\\", '\\'), "file:///D:/");
}

TEST(LinksToFolders, Names_cannot_be_more_than_names_in_them) {
    EXPECT_EQ(linkToFolder("/", "/a b/50%/q?x#y/javascript:z/\"'/\xC3\xA9", '/'),
              "a%20b/50%25/q%3Fx%23y/javascript%3Az/%22%27/%C3%A9/");
    EXPECT_EQ(linkToFolder("/", "/a\\b", '/'), "a%5Cb/");
}

} // namespace
} // namespace tarnwick
