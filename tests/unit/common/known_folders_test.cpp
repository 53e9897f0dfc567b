#include "common/known_folders.hpp"
#include "support/hosted_world.hpp"
#include "support/recording_files.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(KnownFolders, Each_folder_is_asked_for_once_whatever_the_answer) {
    HostedWorld world;
    world.makeFolder("C:\\out");
    RecordingFiles files(world.files());
    KnownFolders folders(files);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(folders.exists("C:\\out"));
        EXPECT_FALSE(folders.exists("C:\\missing"));
        EXPECT_FALSE(folders.exists(""));
    }
    EXPECT_EQ(files.count(FileOperation::CanListFolder), 2);
}

} // namespace
} // namespace tarnwick
