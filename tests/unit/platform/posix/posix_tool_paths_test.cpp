#include "platform/posix/posix_tool_paths.hpp"
#include "support/hosted_world.hpp"
#include "support/raised_by.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

class ToolPathsHere : public testing::Test {
  protected:
    ToolPathsHere() {
        fs::create_directories(host_ + "/Meta Data/In");
        std::ofstream(host_ + "/Meta Data/In/a.met") << "record";
    }
    TemporaryFolder folder_;
    std::string host_ = folder_.hostPath();
    PosixToolPaths paths_{Mounts::of({{.volume = "T:", .hostFolder = host_ + "/Meta Data"}}),
                          R"(T:\In)"};
};

TEST_F(ToolPathsHere, Are_spelled_as_they_are_on_the_disk) {
    EXPECT_EQ(paths_.toolPath(R"(T:\in\A.MET)"), host_ + "/Meta Data/In/a.met");
    EXPECT_EQ(paths_.toolPath(R"(t:\IN)"), host_ + "/Meta Data/In");
    EXPECT_EQ(paths_.toolPath(R"(t:\IN\)"), host_ + "/Meta Data/In");
    EXPECT_EQ(paths_.toolPath("T:\\"), host_ + "/Meta Data");
    EXPECT_EQ(paths_.toolPath("a.met"), host_ + "/Meta Data/In/a.met");
    EXPECT_EQ(paths_.separator(), '/');
}

TEST_F(ToolPathsHere, A_file_that_is_to_be_made_keeps_its_spelling) {
    EXPECT_EQ(paths_.toolPath(R"(T:\in\New.txt)"), host_ + "/Meta Data/In/New.txt");
}

TEST_F(ToolPathsHere, What_has_no_place_is_told_by_its_number) {
    EXPECT_EQ(raisedBy([&] { return paths_.toolPath(R"(T:\no\a.met)"); }), 76);
    EXPECT_EQ(raisedBy([&] { return paths_.toolPath(R"(C:\a.met)"); }), 68);
    EXPECT_EQ(raisedBy([&] { return paths_.toolPath(R"(T:\a?.met)"); }), 52);
}

TEST_F(ToolPathsHere, The_whole_machine_has_its_own_paths) {
    EXPECT_EQ(paths_.toolPath(R"(\\localhost\root)"), "/");
    EXPECT_EQ(paths_.toolPath(Mounts::of({}).windowsPath(host_ + "/Meta Data/In/a.met")),
              host_ + "/Meta Data/In/a.met");
}

} // namespace
} // namespace tarnwick
