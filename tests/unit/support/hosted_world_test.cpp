#include "platform/run_time_error.hpp"
#include "support/hosted_world.hpp"

#include <gtest/gtest.h>

#include <filesystem>

namespace tarnwick {
namespace {

TEST(HostedWorld, It_starts_with_an_empty_drive_and_leaves_nothing_behind) {
    std::string root;
    {
        HostedWorld world;
        root = world.drivesRoot();
        EXPECT_EQ(world.files().drives(), std::vector<std::string>{"C:"});
        EXPECT_TRUE(world.files().listFiles("C:", "").names.empty());
        world.write(R"(C:\a\b\c.txt)", "x");
        world.makeUnlistable(R"(C:\a)");
    }
    EXPECT_FALSE(std::filesystem::exists(root));
}

TEST(HostedWorld, Files_folders_drives_and_shares_are_made_where_they_are_missing) {
    HostedWorld world(R"(C:\work)");
    EXPECT_EQ(world.files().currentFolder(), R"(C:\work)");
    world.write("here.txt", "1");
    EXPECT_EQ(world.read(R"(C:\work\here.txt)"), "1");
    world.makeDrive('D');
    world.write(R"(D:\x\y.txt)", "2");
    EXPECT_EQ(world.read(R"(d:\X\Y.TXT)"), "2");
    world.makeShare(R"(\\server\share)");
    world.write(R"(\\server\share\f\z.txt)", "3");
    EXPECT_TRUE(world.exists(R"(\\SERVER\Share\f\z.txt)"));
    EXPECT_THROW(world.makeFolder(R"(E:\none)"), std::runtime_error);
}

} // namespace
} // namespace tarnwick
