#include "common/one_step_file.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"
#include "support/recording_files.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

namespace tarnwick {
namespace {

using testing::ElementsAre;

TEST(OneStepFile, A_new_file_appears_and_an_old_one_is_replaced) {
    HostedWorld world;
    writeInOneStep(world.files(), "C:\\a.ini", "one");
    EXPECT_EQ(world.read("C:\\a.ini"), "one");
    writeInOneStep(world.files(), "C:\\a.ini", "2");
    EXPECT_EQ(world.read("C:\\a.ini"), "2");
    EXPECT_THAT(world.files().listFiles("C:\\", "").names, ElementsAre("a.ini"));
}

TEST(OneStepFile, The_new_content_is_on_the_medium_before_it_takes_the_old_ones_place) {
    HostedWorld world;
    RecordingFiles files(world.files());
    writeInOneStep(files, "C:\\a.ini", "one");
    std::vector<FileOperation> operations;
    for (const RecordingFiles::Call& call : files.calls()) {
        operations.push_back(call.operation);
    }
    EXPECT_THAT(operations,
                ElementsAre(FileOperation::CreateNew, FileOperation::Write, FileOperation::Flush,
                            FileOperation::Close, FileOperation::MoveOver));
    EXPECT_EQ(files.count(FileOperation::Create, "C:\\a.ini"), 0);
}

TEST(OneStepFile, A_content_in_pieces_takes_the_old_ones_place_when_all_is_there) {
    HostedWorld world;
    world.write("C:\\a.txt", "old");
    writeInOneStep(world.files(), "C:\\a.txt", [&](OutputFile& file) {
        file.write("one, ");
        file.drain();
        EXPECT_EQ(world.read("C:\\a.txt"), "old");
        file.write("two");
    });
    EXPECT_EQ(world.read("C:\\a.txt"), "one, two");
    EXPECT_THAT(world.files().listFiles("C:\\", "").names, ElementsAre("a.txt"));
}

TEST(OneStepFile, A_content_that_ends_in_its_middle_leaves_the_old_file_alone) {
    HostedWorld world;
    world.write("C:\\a.txt", "old");
    EXPECT_THROW(writeInOneStep(world.files(), "C:\\a.txt",
                                [](OutputFile& file) {
                                    file.write("one, ");
                                    throw std::runtime_error("no more");
                                }),
                 std::runtime_error);
    EXPECT_EQ(world.read("C:\\a.txt"), "old");
    EXPECT_THAT(world.files().listFiles("C:\\", "").names, ElementsAre("a.txt"));
}

TEST(OneStepFile, A_full_disk_raises_and_leaves_the_old_file_alone) {
    HostedWorld world;
    world.write("C:\\a.ini", "old");
    FaultyFiles files(world.files());
    files.fillDiskAfter(2);
    try {
        writeInOneStep(files, "C:\\a.ini", "new");
        FAIL() << "raised nothing";
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.is(ErrorNumber::DiskFull));
    }
    EXPECT_EQ(world.read("C:\\a.ini"), "old");
    EXPECT_THAT(world.files().listFiles("C:\\", "").names, ElementsAre("a.ini"));
}

TEST(OneStepFile, The_first_error_is_raised_even_when_cleaning_up_fails_too) {
    HostedWorld world;
    FaultyFiles files(world.files());
    files.failAt(FileOperation::Write, 1, RunTimeError(ErrorNumber::DiskFull));
    files.failAlways(FileOperation::Remove, RunTimeError(ErrorNumber::PermissionDenied));
    try {
        writeInOneStep(files, "C:\\a.ini", "new");
        FAIL() << "raised nothing";
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.is(ErrorNumber::DiskFull));
    }
}

// Its folder is not this user's, but the file is.
class WithoutRoomBeside : public testing::Test {
  protected:
    WithoutRoomBeside() {
        world.write("C:\\a.ini", "old");
        files.failAt(FileOperation::CreateNew, 1, RunTimeError(ErrorNumber::PathFileAccess));
    }
    ErrorNumber raisedBySaving(std::string_view content) {
        try {
            writeInOneStep(files, "C:\\a.ini", content);
        } catch (const RunTimeError& error) {
            return static_cast<ErrorNumber>(error.record().number);
        }
        ADD_FAILURE() << "raised nothing";
        return {};
    }

    HostedWorld world;
    FaultyFiles files{world.files()};
};

TEST_F(WithoutRoomBeside, An_existing_file_is_written_in_its_place) {
    writeInOneStep(files, "C:\\a.ini", "n");
    EXPECT_EQ(world.read("C:\\a.ini"), "n");
    EXPECT_THAT(world.files().listFiles("C:\\", "").names, ElementsAre("a.ini"));
}

TEST_F(WithoutRoomBeside, A_new_file_is_refused_as_its_folder_says) {
    world.files().remove("C:\\a.ini");
    EXPECT_EQ(raisedBySaving("new"), ErrorNumber::PathFileAccess);
    EXPECT_FALSE(world.exists("C:\\a.ini"));
}

TEST_F(WithoutRoomBeside, A_file_that_may_not_be_written_either_is_left_alone) {
    world.makeReadOnly("C:\\a.ini");
    EXPECT_EQ(raisedBySaving("new"), ErrorNumber::PathFileAccess);
    EXPECT_EQ(world.read("C:\\a.ini"), "old");
}

TEST_F(WithoutRoomBeside, What_was_there_is_put_back_where_the_writing_fails) {
    for (const FileOperation operation :
         {FileOperation::Write, FileOperation::Flush, FileOperation::Close}) {
        SCOPED_TRACE(operation);
        files.failAt(FileOperation::CreateNew, 1, RunTimeError(ErrorNumber::PathFileAccess));
        files.failAt(operation, 1, RunTimeError(ErrorNumber::DeviceIO));
        EXPECT_EQ(raisedBySaving("new and longer"), ErrorNumber::DeviceIO);
        EXPECT_EQ(world.read("C:\\a.ini"), "old");
    }
}

TEST(OneStepFile, A_full_disk_is_no_reason_to_write_in_place) {
    HostedWorld world;
    world.write("C:\\a.ini", "old");
    FaultyFiles files(world.files());
    files.failAt(FileOperation::CreateNew, 1, RunTimeError(ErrorNumber::DiskFull));
    EXPECT_THROW(writeInOneStep(files, "C:\\a.ini", "new"), RunTimeError);
    EXPECT_EQ(world.read("C:\\a.ini"), "old");
}

// Somebody else has put a link in the place of a file that is about to be made.
class PlantedLink : public testing::Test {
  protected:
    PlantedLink() { world.write("C:\\else\\mine.txt", "mine"); }
    void plant(const std::string& name) const {
        const std::string drive = world.drivesRoot() + "/c/";
        std::filesystem::create_symlink(drive + "else/mine.txt", drive + name);
    }
    void expectMineUntouched() const { EXPECT_EQ(world.read("C:\\else\\mine.txt"), "mine"); }

    HostedWorld world;
};

TEST_F(PlantedLink, A_file_that_is_created_anew_takes_the_links_place) {
    plant("a.bat");
    const auto file = createAnew(world.files(), "C:\\a.bat");
    file->write("new");
    file->close();
    expectMineUntouched();
    EXPECT_EQ(world.read("C:\\a.bat"), "new");
}

TEST_F(PlantedLink, Nothing_is_written_through_a_link_beside_a_file) {
    plant("a.ini.tarnwick-new");
    writeInOneStep(world.files(), "C:\\a.ini", "new");
    expectMineUntouched();
    EXPECT_EQ(world.read("C:\\a.ini"), "new");
    world.makeDrive('D');
    world.write("D:\\new", "new");
    plant("beside");
    moveInOneStep(world.files(), "D:\\new", "C:\\page", "C:\\beside");
    expectMineUntouched();
    EXPECT_EQ(world.read("C:\\page"), "new");
}

TEST_F(PlantedLink, A_link_in_the_place_of_a_file_is_told_and_not_followed) {
    plant("a.ini");
    EXPECT_THROW(writeInOneStep(world.files(), "C:\\a.ini", "new"), RunTimeError);
    expectMineUntouched();
    EXPECT_EQ(world.read("C:\\a.ini"), "mine"); // the link is there still
    EXPECT_FALSE(world.exists("C:\\a.ini.tarnwick-new"));
}

class MoveInOneStep : public testing::Test {
  protected:
    MoveInOneStep() {
        world.makeDrive('D');
        world.write("C:\\new", "new");
        world.write("D:\\page", "old content");
    }
    void expectOldPageAlone() {
        EXPECT_EQ(world.read("D:\\page"), "old content");
        EXPECT_EQ(world.read("C:\\new"), "new");
        EXPECT_THAT(world.files().listFiles("D:\\", "").names, ElementsAre("page"));
    }

    HostedWorld world;
    FaultyFiles files{world.files()};
};

TEST_F(MoveInOneStep, On_one_volume_nothing_is_copied) {
    world.write("C:\\page", "old content");
    RecordingFiles recording(world.files());
    moveInOneStep(recording, "C:\\new", "C:\\page", "C:\\beside");
    EXPECT_THAT(recording.calls(), ElementsAre(RecordingFiles::Call{
                                       .operation = FileOperation::MoveOver, .path = "C:\\new"}));
    EXPECT_EQ(world.read("C:\\page"), "new");
    EXPECT_FALSE(world.exists("C:\\new"));
}

TEST_F(MoveInOneStep, From_another_volume_the_file_is_first_copied_beside_its_place) {
    const std::string large(600UZ * 1024, 'x');
    world.write("C:\\new", large);
    RecordingFiles recording(world.files());
    moveInOneStep(recording, "C:\\new", "D:\\page", "D:\\beside");
    EXPECT_EQ(recording.count(FileOperation::MoveOver, "D:\\beside"), 1);
    EXPECT_EQ(recording.count(FileOperation::Create, "D:\\page"), 0);
    EXPECT_TRUE(world.read("D:\\page") == large);
    EXPECT_FALSE(world.exists("C:\\new"));
    EXPECT_FALSE(world.exists("D:\\beside"));
}

TEST_F(MoveInOneStep, A_full_volume_leaves_the_old_file_and_nothing_beside_it) {
    files.fillDiskAfter(1);
    EXPECT_THROW(moveInOneStep(files, "C:\\new", "D:\\page", "D:\\beside"), RunTimeError);
    expectOldPageAlone();
}

TEST_F(MoveInOneStep, What_is_refused_on_one_volume_is_not_tried_by_copying) {
    world.write("C:\\page", "old content");
    world.makeReadOnly("C:\\page");
    RecordingFiles recording(world.files());
    EXPECT_THROW(moveInOneStep(recording, "C:\\new", "C:\\page", "C:\\beside"), RunTimeError);
    EXPECT_THAT(recording.calls(), ElementsAre(RecordingFiles::Call{
                                       .operation = FileOperation::MoveOver, .path = "C:\\new"}));
}

TEST_F(MoveInOneStep, What_may_not_be_replaced_stays) {
    world.makeReadOnly("D:\\page");
    try {
        moveInOneStep(files, "C:\\new", "D:\\page", "D:\\beside");
        FAIL() << "raised nothing";
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.is(ErrorNumber::PathFileAccess));
    }
    expectOldPageAlone();
}

} // namespace
} // namespace tarnwick
