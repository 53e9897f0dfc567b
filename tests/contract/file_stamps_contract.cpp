#include "contract/contract_fixture.hpp"
#include "contract/runner_platform.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

class FileStampsContract : public ContractTest {
  protected:
    FileStampsContract() { files.createFolder(in("folder")); }

    void putAt(std::string_view name, std::string_view bytes, std::int64_t time) {
        put(name, bytes);
        runner->setTime(in(name), time);
    }
    [[nodiscard]] std::vector<StampedFile> sorted(const std::string& folder) const {
        auto listed = stamps.listStamped(folder).files;
        std::ranges::sort(listed, {}, &StampedFile::name);
        return listed;
    }

    std::unique_ptr<RunnerPlatform> runner = makeRunnerPlatform(*platform);
    FileStamps& stamps = runner->stamps();
};

constexpr std::int64_t aDayIn2001 = 1'000'000'000'123'456'700;

TEST_F(FileStampsContract, A_stamp_is_the_size_and_the_time_of_the_last_change) {
    putAt("folder\\a.met", "12345", aDayIn2001);
    putAt("folder\\b.met", "", aDayIn2001 + 100);
    const Stamp first{.size = 5, .time = aDayIn2001};
    const Stamp second{.size = 0, .time = aDayIn2001 + 100};
    EXPECT_EQ(stamps.stampOf(in("folder\\a.met")), first);
    EXPECT_EQ(stamps.stampOfExact(in("folder\\a.met")), first);
    EXPECT_EQ(stamps.stampOf(in("folder\\b.met")), second);
    EXPECT_EQ(sorted(in("folder")), (std::vector<StampedFile>{{.name = "a.met", .stamp = first},
                                                              {.name = "b.met", .stamp = second}}));
    EXPECT_EQ(sorted(in("folder\\")), sorted(in("folder")));
}

TEST_F(FileStampsContract, A_name_is_found_in_any_case_of_letters) {
    putAt("folder\\a.met", "12345", aDayIn2001);
    const Stamp stamp{.size = 5, .time = aDayIn2001};
    EXPECT_EQ(stamps.stampOf(in("FOLDER\\A.Met")), stamp);
    EXPECT_EQ(sorted(in("FOLDER")), (std::vector<StampedFile>{{.name = "a.met", .stamp = stamp}}));
}

TEST_F(FileStampsContract, A_time_before_1970_is_negative) {
    putAt("old.met", "x", -1'500'000'000);
    EXPECT_EQ(stamps.stampOf(in("old.met")), (Stamp{.size = 1, .time = -1'500'000'000}));
}

TEST_F(FileStampsContract, A_file_that_is_written_again_has_another_stamp) {
    putAt("a.met", "old", aDayIn2001);
    put("a.met", "new");
    const auto written = stamps.stampOf(in("a.met"));
    ASSERT_NE(written, std::nullopt);
    EXPECT_EQ(written->size, 3U);
    EXPECT_GT(written->time, aDayIn2001);
}

TEST_F(FileStampsContract, A_large_file_has_its_whole_size) {
    const std::string large(5'000'000, 'x');
    put("large.met", large);
    EXPECT_EQ(stamps.stampOf(in("large.met")).value_or(Stamp()).size, large.size());
}

TEST_F(FileStampsContract, What_is_no_file_has_none) {
    put("a.met");
    for (const std::string_view name :
         {"folder", "gone.met", "gone\\a.met", "a.met\\b.met", "folder\\"}) {
        EXPECT_EQ(stamps.stampOf(in(name)), std::nullopt) << name;
        EXPECT_EQ(stamps.stampOfExact(in(name)), std::nullopt) << name;
    }
}

TEST_F(FileStampsContract, A_path_that_cannot_be_is_told_by_its_number) {
    for (const std::string_view name : {"a?.met", "a*.met", "a\"b", "a|b", "a:b"}) {
        EXPECT_EQ(raisedBy([&] { return stamps.stampOf(in(name)); }), 52) << name;
        EXPECT_EQ(raisedBy([&] { return stamps.listStamped(in(name)); }), 52) << name;
    }
    const auto missing = platform->missingDrive();
    EXPECT_EQ(raisedBy([&] { return stamps.stampOf(missing + "\\a.met"); }), 68);
    EXPECT_EQ(raisedBy([&] { return stamps.listStamped(missing); }), 68);
    EXPECT_EQ(raisedBy([&] { return stamps.listStamped(in("gone")); }), 76);
    put("a.met");
    EXPECT_EQ(raisedBy([&] { return stamps.listStamped(in("a.met")); }), 76);
}

TEST_F(FileStampsContract, A_folder_is_listed_by_the_names_that_Files_gives) {
    for (const std::string_view name : {"b.met", "A.met", "caf\xC3\xA9.txt", "with blanks.met"}) {
        put("folder\\" + std::string(name), name);
    }
    files.createFolder(in("folder\\inner"));
    platform->makeNameless(in("folder"), ".met");
    const auto stamped = stamps.listStamped(in("folder"));
    const auto listed = files.listFiles(in("folder"), "");
    Names names;
    for (const StampedFile& file : stamped.files) {
        names.push_back(file.name);
        EXPECT_EQ(stamps.stampOf(in("folder\\" + file.name)), file.stamp) << file.name;
    }
    EXPECT_THAT(names, testing::UnorderedElementsAreArray(listed.names));
    EXPECT_EQ(stamped.leftOut, listed.leftOut);
}

TEST_F(FileStampsContract, Of_many_files_each_has_its_own) {
    constexpr std::size_t many = 300;
    std::vector<StampedFile> expected;
    for (std::size_t i = 0; i < many; ++i) {
        const std::string name = std::to_string(1000 + i);
        const auto time = aDayIn2001 + static_cast<std::int64_t>(i) * 1'000'000'000;
        putAt("folder\\" + name, std::string(i, 'x'), time);
        expected.push_back({.name = name, .stamp = {.size = i, .time = time}});
    }
    EXPECT_EQ(sorted(in("folder")), expected);
}

TEST_F(FileStampsContract, An_empty_folder_and_an_empty_drive_have_no_files) {
    EXPECT_EQ(stamps.listStamped(in("folder")), StampedListing());
    EXPECT_EQ(stamps.listStamped(platform->emptyDrive()), StampedListing());
}

} // namespace
} // namespace tarnwick
