#include "support/faulty_files.hpp"
#include "support/file_bytes.hpp"
#include "support/hosted_world.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

class FaultyFilesTest : public testing::Test {
  protected:
    HostedWorld world;
    FaultyFiles files{world.files()};
    const RunTimeError ioError{ErrorNumber::DeviceIO, 1117};
};

TEST_F(FaultyFilesTest, Without_a_fault_every_call_passes) {
    putBytes(files, R"(C:\a.txt)", "abc");
    files.moveOver(R"(C:\a.txt)", R"(C:\b.txt)");
    EXPECT_EQ(bytesOf(files, R"(C:\b.txt)"), "abc");
    EXPECT_EQ(files.listFiles(R"(C:\)", "*").names, std::vector<std::string>{"b.txt"});
    EXPECT_TRUE(files.canListFolder(R"(C:\)"));
}

TEST_F(FaultyFilesTest, Only_the_nth_call_of_the_operation_fails) {
    files.failAt(FileOperation::CreateFolder, 2, ioError);
    files.createFolder(R"(C:\one)");
    try {
        files.createFolder(R"(C:\two)");
        FAIL() << "the second call must fail";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.record(), ioError.record());
    }
    files.createFolder(R"(C:\three)");
    EXPECT_EQ(files.listFolders(R"(C:\)").names, (std::vector<std::string>{"one", "three"}));
}

TEST_F(FaultyFilesTest, A_call_that_always_fails_does_so_until_it_is_healed) {
    files.failAlways(FileOperation::CanListFolder, ioError);
    EXPECT_FALSE(files.canListFolder(R"(C:\)"));
    EXPECT_FALSE(files.canListFolder(R"(C:\)"));
    files.heal();
    EXPECT_TRUE(files.canListFolder(R"(C:\)"));
}

TEST_F(FaultyFilesTest, A_full_disk_keeps_what_still_had_room) {
    files.fillDiskAfter(5);
    const auto file = files.create(R"(C:\a.txt)");
    file->write("abc");
    try {
        file->write("defg");
        FAIL() << "the disk is full";
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.is(ErrorNumber::DiskFull));
    }
    EXPECT_THROW(file->flush(), RunTimeError);
    EXPECT_THROW(file->drain(), RunTimeError);
    EXPECT_THROW(file->close(), RunTimeError);
    EXPECT_EQ(world.read(R"(C:\a.txt)"), "abcde");
}

TEST_F(FaultyFilesTest, A_close_that_fails_closes_all_the_same) {
    files.failAt(FileOperation::Close, 1, ioError);
    const auto file = files.create(R"(C:\a.txt)");
    file->write("abc");
    EXPECT_THROW(file->close(), RunTimeError);
    files.remove(R"(C:\a.txt)"); // which an open file would not let us
    EXPECT_FALSE(world.exists(R"(C:\a.txt)"));
}

TEST_F(FaultyFilesTest, Reading_and_flushing_can_fail_too) {
    world.write(R"(C:\a.txt)", "abc");
    files.failAt(FileOperation::Read, 2, ioError);
    EXPECT_THROW(static_cast<void>(bytesOf(files, R"(C:\a.txt)")), RunTimeError);
    files.failAt(FileOperation::Flush, 1, ioError);
    EXPECT_THROW(files.append(R"(C:\a.txt)")->flush(), RunTimeError);
}

} // namespace
} // namespace tarnwick
