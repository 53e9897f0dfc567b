#include "platform/posix/posix_file_stamps.hpp"
#include "support/hosted_world.hpp"
#include "support/raised_by.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

class StampsHere : public testing::Test {
  protected:
    StampsHere() { fs::create_directories(host_ + "/In"); }

    void write(const std::string& name, const std::string& bytes, time_t seconds,
               long nanoseconds) const {
        const auto path = host_ + "/In/" + name;
        std::ofstream(path, std::ios::binary) << bytes;
        const std::array<timespec, 2> times{timespec{.tv_sec = 1, .tv_nsec = 1},
                                            timespec{.tv_sec = seconds, .tv_nsec = nanoseconds}};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times.data(), 0), 0);
    }
    [[nodiscard]] std::vector<StampedFile> sorted() const {
        auto files = stamps_.listStamped("T:\\in").files;
        std::ranges::sort(files, {}, &StampedFile::name);
        return files;
    }

    TemporaryFolder folder_;
    std::string host_ = folder_.hostPath();
    PosixFileStamps stamps_{Mounts::of({{.volume = "T:", .hostFolder = host_}}), "T:\\"};
};

TEST_F(StampsHere, Tell_size_and_time_to_the_nanosecond) {
    write("a.met", "12345", 1'000'000'000, 123'456'789);
    const Stamp stamp{.size = 5, .time = 1'000'000'000'123'456'789};
    EXPECT_EQ(stamps_.stampOf(R"(T:\IN\A.MET)"), stamp);
    EXPECT_EQ(stamps_.stampOf(R"(T:\In\a.met)"), stamp);
    EXPECT_EQ(sorted(), (std::vector<StampedFile>{{.name = "a.met", .stamp = stamp}}));
}

TEST_F(StampsHere, A_file_is_first_the_one_that_is_spelled_so) {
    write("a.met", "lower", 1, 0);
    write("A.met", "upper case", 2, 0);
    EXPECT_EQ(stamps_.stampOf(R"(t:\in\a.met)")->size, 5U);
    EXPECT_EQ(stamps_.stampOf(R"(t:\in\A.met)")->size, 10U);
    EXPECT_EQ(stamps_.stampOf(R"(t:\in\A.MET)")->size, 10U);
    EXPECT_EQ(stamps_.stampOfExact(R"(T:\In\A.MET)"), std::nullopt);
}

TEST_F(StampsHere, A_time_before_1970_is_negative) {
    write("old.met", "", -2, 500'000'000);
    EXPECT_EQ(stamps_.stampOf(R"(T:\In\old.met)"), (Stamp{.size = 0, .time = -1'500'000'000}));
}

TEST_F(StampsHere, A_link_to_a_file_is_that_file_and_others_are_none) {
    write("a.met", "12345", 7, 8);
    fs::create_symlink("a.met", host_ + "/In/link.met");
    fs::create_symlink("gone.met", host_ + "/In/broken.met");
    fs::create_directory(host_ + "/In/folder");
    fs::create_directory_symlink("folder", host_ + "/In/to folder");
    ASSERT_EQ(::mkfifo((host_ + "/In/pipe").c_str(), 0600), 0);
    const Stamp stamp{.size = 5, .time = 7'000'000'008};
    EXPECT_EQ(sorted(), (std::vector<StampedFile>{{.name = "a.met", .stamp = stamp},
                                                  {.name = "link.met", .stamp = stamp}}));
    EXPECT_EQ(stamps_.stampOf(R"(T:\In\link.met)"), stamp);
    for (const auto* const name : {"broken.met", "folder", "to folder", "pipe"}) {
        EXPECT_EQ(stamps_.stampOf(R"(T:\In\)" + std::string(name)), std::nullopt) << name;
    }
}

TEST_F(StampsHere, What_begins_with_a_dot_is_hidden_but_there) {
    write(".hidden", "x", 1, 0);
    EXPECT_EQ(sorted(), std::vector<StampedFile>{});
    EXPECT_EQ(stamps_.stampOf(R"(T:\In\.hidden)"), (Stamp{.size = 1, .time = 1'000'000'000}));
}

TEST_F(StampsHere, Names_that_are_no_UTF_8_are_left_out_and_counted) {
    write("caf\xE9.met", "", 1, 0);
    write("good.met", "", 1, 0);
    fs::create_directory(host_ + "/In/\xE9");
    const auto listing = stamps_.listStamped("T:\\In");
    ASSERT_EQ(listing.files.size(), 1U);
    EXPECT_EQ(listing.files[0].name, "good.met");
    EXPECT_EQ(listing.leftOut, (LeftOut{.count = 1, .first = "caf<U+00E9>.met"}));
}

TEST_F(StampsHere, Of_many_files_each_has_its_own) {
    constexpr std::size_t many = 1000; // for several threads
    for (std::size_t i = 0; i < many; ++i) {
        write(std::to_string(10'000 + i), std::string(i, 'x'), static_cast<time_t>(i), 7);
    }
    const auto files = sorted();
    ASSERT_EQ(files.size(), many);
    for (std::size_t i = 0; i < many; ++i) {
        EXPECT_EQ(files[i].name, std::to_string(10'000 + i));
        EXPECT_EQ(files[i].stamp,
                  (Stamp{.size = i, .time = static_cast<std::int64_t>(i) * 1'000'000'000 + 7}));
    }
}

TEST_F(StampsHere, What_is_not_there_has_none) {
    EXPECT_EQ(stamps_.stampOf(R"(T:\In\gone.met)"), std::nullopt);
    EXPECT_EQ(stamps_.stampOf(R"(T:\gone\a.met)"), std::nullopt);
    EXPECT_EQ(stamps_.stampOfExact(R"(T:\gone\a.met)"), std::nullopt);
    EXPECT_EQ(raisedBy([&] { return stamps_.stampOf(R"(X:\a.met)"); }), 68);
    EXPECT_EQ(raisedBy([&] { return stamps_.stampOf(R"(T:\a?.met)"); }), 52);
    EXPECT_EQ(raisedBy([&] { return stamps_.listStamped("T:\\gone"); }), 76);
    EXPECT_EQ(raisedBy([&] { return stamps_.listStamped("X:"); }), 68);
    EXPECT_EQ(stamps_.listStamped("T:").files, std::vector<StampedFile>());
}

} // namespace
} // namespace tarnwick
