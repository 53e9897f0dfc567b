#include "platform/posix/mounts.hpp"
#include "platform/posix/posix_files.hpp"
#include "support/file_bytes.hpp"
#include "support/hosted_world.hpp"
#include "support/raised_by.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

const Mounts meta = Mounts::of({{.volume = "T:", .hostFolder = "/srv/meta"},
                                {.volume = "u:", .hostFolder = "/srv/meta/deep/"},
                                {.volume = R"(\\Server\Share)", .hostFolder = "/mnt/x"}});

TEST(Mounts, A_path_of_the_machine_is_below_the_longest_mount_that_fits) {
    EXPECT_EQ(meta.windowsPath("/srv/meta/in/a.met"), R"(T:\in\a.met)");
    EXPECT_EQ(meta.windowsPath("/srv/meta/deep/a.met"), R"(u:\a.met)");
    EXPECT_EQ(meta.windowsPath("/srv/meta/deeper"), R"(T:\deeper)");
    EXPECT_EQ(meta.windowsPath("/mnt/x/b c/d"), R"(\\Server\Share\b c\d)");
}

TEST(Mounts, A_mount_itself_is_the_root_of_its_drive_or_share) {
    EXPECT_EQ(meta.windowsPath("/srv/meta"), R"(T:\)");
    EXPECT_EQ(meta.windowsPath("/srv/meta/"), R"(T:\)");
    EXPECT_EQ(meta.windowsPath("/mnt/x"), R"(\\Server\Share)");
}

TEST(Mounts, What_no_mount_holds_is_on_the_share_that_is_the_whole_machine) {
    EXPECT_EQ(meta.windowsPath("/srv/other/a.met"), R"(\\localhost\root\srv\other\a.met)");
    EXPECT_EQ(meta.windowsPath("/srv/metal"), R"(\\localhost\root\srv\metal)");
    EXPECT_EQ(meta.windowsPath("/"), R"(\\localhost\root)");
    EXPECT_EQ(Mounts::of({}).windowsPath("/srv"), R"(\\localhost\root\srv)");
}

TEST(Mounts, A_relative_path_is_seen_from_the_current_folder_and_dots_are_resolved) {
    const auto here = Mounts::of({{.volume = "H:", .hostFolder = "."}});
    EXPECT_EQ(here.windowsPath("a.met"), R"(H:\a.met)");
    EXPECT_EQ(here.windowsPath(fs::current_path().string() + "/x/./y/../z"), R"(H:\x\z)");
    EXPECT_EQ(here.windowsPath("."), R"(H:\)");
}

TEST(Mounts, A_name_that_no_Windows_path_can_hold_is_refused) {
    for (const auto* const name :
         {"a:b", "a\\b", "a\tb", "a?b", "a*", "a|b", "a\"b", "a<b", "a.", "a ", "\xE9", "a\nb"}) {
        EXPECT_EQ(raisedBy([&] { return meta.windowsPath(std::string("/srv/") + name); }), 52)
            << name;
        EXPECT_EQ(raisedBy([&] {
                      static_cast<void>(meta.windowsPath("/srv/" + std::string(name) + "/x"));
                  }),
                  52)
            << name;
    }
    EXPECT_EQ(meta.windowsPath("/srv/meta/caf\u00E9.met"), "T:\\caf\u00E9.met");
    EXPECT_EQ(raisedBy([] { return meta.windowsPath(""); }), 76);
}

TEST(Mounts, Of_several_of_one_name_the_first_counts) {
    const auto twice =
        Mounts::of({{.volume = "T:", .hostFolder = "/a"}, {.volume = "t:", .hostFolder = "/b"}});
    EXPECT_EQ(twice.placeOf("t:").hostFolder, "/a");
    EXPECT_EQ(twice.windowsPath("/b/x"), R"(\\localhost\root\b\x)");
}

TEST(Mounts, A_drive_or_share_that_nobody_named_does_not_exist) {
    EXPECT_EQ(raisedBy([] { return meta.placeOf("C:"); }), 68);
    EXPECT_EQ(raisedBy([] { return meta.placeOf(R"(\\server\other)"); }), 76);
    EXPECT_EQ(meta.placeOf(R"(\\SERVER\share)").hostFolder, "/mnt/x");
}

TEST(Mounts, Below_a_drives_root_folders_are_drives_and_shares) {
    const auto root = Mounts::below("/drives");
    EXPECT_EQ(root.windowsPath("/drives/c/in/a.met"), R"(C:\in\a.met)");
    EXPECT_EQ(root.windowsPath("/drives/c"), R"(C:\)");
    EXPECT_EQ(root.windowsPath("/drives/unc/s/h/a"), R"(\\s\h\a)");
    EXPECT_EQ(raisedBy([&] { return root.windowsPath("/drives/long/a"); }), 76);
    EXPECT_EQ(raisedBy([&] { return root.windowsPath("/srv"); }), 76);
}

// Files through a list of mounts.
class MountedFiles : public testing::Test {
  protected:
    MountedFiles() {
        fs::create_directories(host_ + "/meta/In");
        std::ofstream(host_ + "/meta/In/a.met") << "record";
    }
    TemporaryFolder folder_;
    std::string host_ = folder_.hostPath();
    PosixFiles files_{Mounts::of({{.volume = "T:", .hostFolder = host_ + "/meta"},
                                  {.volume = R"(\\server\share)", .hostFolder = host_ + "/meta/In"},
                                  {.volume = "G:", .hostFolder = host_ + "/gone"}}),
                      R"(T:\In)"};
};

TEST_F(MountedFiles, Are_found_by_drive_by_share_and_from_the_current_folder) {
    EXPECT_EQ(bytesOf(files_, R"(t:\IN\A.MET)"), "record");
    EXPECT_EQ(bytesOf(files_, R"(\\SERVER\share\a.met)"), "record");
    EXPECT_EQ(bytesOf(files_, "a.met"), "record");
    EXPECT_EQ(files_.currentFolder(), R"(T:\In)");
    EXPECT_TRUE(files_.canListFolder("T:"));
    EXPECT_EQ(files_.drives(), std::vector<std::string>{"T:"});
}

TEST_F(MountedFiles, Are_found_on_the_share_that_is_the_whole_machine) {
    const auto path = Mounts::of({}).windowsPath(host_ + "/meta/in/A.met");
    EXPECT_EQ(bytesOf(files_, path), "record");
    EXPECT_TRUE(files_.canListFolder(R"(\\localhost\root)"));
    EXPECT_FALSE(files_.listFolders(R"(\\localhost\root)").names.empty());
    EXPECT_EQ(files_.hostPath(R"(\\localhost\root)"), "/");
    EXPECT_EQ(files_.hostPath(R"(\\localhost\root\no such name)"), "/no such name");
}

TEST_F(MountedFiles, A_mount_whose_folder_is_gone_is_a_drive_that_does_not_exist) {
    EXPECT_FALSE(files_.canListFolder("G:"));
    EXPECT_EQ(raisedBy([&] { return files_.openForReading(R"(G:\in\a.met)"); }), 68);
    EXPECT_EQ(raisedBy([&] { return files_.openForReading(R"(X:\a.met)"); }), 68);
    EXPECT_EQ(raisedBy([&] { return files_.openForReading(R"(\\s\h\a.met)"); }), 76);
    EXPECT_EQ(raisedBy([&] { files_.createFolder(R"(G:\new)"); }), 68);
}

TEST_F(MountedFiles, A_new_file_and_a_new_folder_come_into_the_mounted_folder) {
    files_.createFolder(R"(T:\Out)");
    putBytes(files_, R"(t:\out\b.txt)", "product");
    EXPECT_TRUE(fs::is_regular_file(host_ + "/meta/Out/b.txt"));
    files_.replace(R"(T:\Out\b.txt)", R"(T:\in\A.met)");
    EXPECT_EQ(bytesOf(files_, "a.met"), "product");
}

} // namespace
} // namespace tarnwick
