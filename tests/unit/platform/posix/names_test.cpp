#include "platform/posix/posix_files.hpp"
#include "support/file_bytes.hpp"
#include "support/hosted_world.hpp"
#include "support/raised_by.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

// Names as this machine has them.
class NamesHere : public testing::Test {
  protected:
    void make(const std::string& name) const { std::ofstream(host_ + '/' + name) << name; }

    TemporaryFolder folder_;
    std::string host_ = folder_.hostPath();
    PosixFiles files_{Mounts::of({{.volume = "T:", .hostFolder = host_}}), "T:\\"};
};

TEST_F(NamesHere, A_letter_beyond_ASCII_matches_in_any_case) {
    fs::create_directory(host_ + "/\u00DCbersicht");
    make("\u00DCbersicht/caf\u00E9.met");
    EXPECT_EQ(bytesOf(files_, "T:\\\u00FCBERSICHT\\CAF\u00C9.MET"), "\u00DCbersicht/caf\u00E9.met");
    EXPECT_EQ(files_.firstNormalFile("T:\\\u00FCbersicht\\CAF\u00C9.*"), "caf\u00E9.met");
    EXPECT_EQ(files_.listFiles("T:\\\u00FCbersicht", "*\u00C9.met").names,
              std::vector<std::string>{"caf\u00E9.met"});
}

TEST_F(NamesHere, A_letter_matches_its_capital_of_another_length) {
    make("x\u0250.met");
    EXPECT_EQ(bytesOf(files_, "T:\\X\u2C6F.MET"), "x\u0250.met");
    files_.remove("T:\\X\u2C6F.MET");
    EXPECT_FALSE(fs::exists(host_ + "/x\u0250.met"));
}

TEST_F(NamesHere, The_name_spelled_alike_comes_first) {
    make("\u00C9");
    make("\u00E9");
    EXPECT_EQ(bytesOf(files_, "T:\\\u00E9"), "\u00E9");
    EXPECT_EQ(bytesOf(files_, "T:\\\u00C9"), "\u00C9");
}

TEST_F(NamesHere, A_new_file_is_made_beside_one_in_another_case) {
    make("a.tmp");
    fs::create_directory(host_ + "/In");
    files_.createNew("T:\\A.tmp")->close();
    files_.createNew("T:\\IN\\B.tmp")->close();
    EXPECT_EQ(files_.listFiles("T:", "").names, (std::vector<std::string>{"A.tmp", "a.tmp"}));
    EXPECT_TRUE(fs::exists(host_ + "/In/B.tmp"));
    EXPECT_EQ(raisedBy([&] { return files_.createNew("T:\\a.tmp"); }), 58);
    EXPECT_EQ(raisedBy([&] { return files_.createNew("T:\\gone\\a.tmp"); }), 76);
    EXPECT_EQ(raisedBy([&] { return files_.createNew("T:\\a.tmp\\b.tmp"); }), 76);
    EXPECT_EQ(raisedBy([&] { return files_.createNew("T:\\"); }), 58);
}

TEST_F(NamesHere, Names_that_are_no_UTF_8_are_left_out_and_counted) {
    make("caf\xE9.met");
    make("good.met");
    const auto listing = files_.listFiles("T:", "");
    EXPECT_EQ(listing.names, std::vector<std::string>{"good.met"});
    EXPECT_EQ(listing.leftOut.count, 1U);
    EXPECT_EQ(listing.leftOut.first, "caf<U+00E9>.met");
}

} // namespace
} // namespace tarnwick
