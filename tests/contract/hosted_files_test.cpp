// What only the files of the build machine promise, and the tests' own code page.

#include "contract/contract_fixture.hpp"
#include "support/code_page_437.hpp"
#include "support/hosted_world.hpp"

#include <iconv.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

TEST(HostedFiles, A_folder_that_may_not_be_listed_raises_75) {
    HostedWorld world;
    world.write(R"(C:\closed\a.txt)", "abc");
    world.makeUnlistable(R"(C:\closed)");
    EXPECT_FALSE(world.files().canListFolder(R"(C:\closed)"));
    EXPECT_EQ(raisedBy([&] { return world.files().listFiles(R"(C:\closed)", "").names; }), 75);
    EXPECT_EQ(raisedBy([&] { return world.files().listFolders(R"(C:\closed)").names; }), 75);
}

TEST(HostedFiles, A_name_spelled_alike_goes_before_one_in_other_case) {
    const HostedWorld world;
    const fs::path drive = fs::path(world.drivesRoot()) / "c";
    std::ofstream(drive / "NAME.txt") << "upper";
    std::ofstream(drive / "name.txt") << "lower";
    EXPECT_EQ(world.read(R"(C:\name.txt)"), "lower");
    EXPECT_EQ(world.read(R"(C:\NAME.txt)"), "upper");
    EXPECT_EQ(world.read(R"(C:\Name.TXT)"), "upper");
}

TEST(HostedFiles, The_list_of_hidden_and_system_files_is_never_shown) {
    HostedWorld world;
    world.write(R"(C:\a.txt)", "");
    world.hide(R"(C:\a.txt)");
    EXPECT_EQ(world.files().listFiles("C:", "").names, Names{});
    EXPECT_EQ(world.files().firstNormalFile(R"(C:\.hidden)"), "");
}

TEST(HostedFiles, A_pipe_is_no_file_and_nobody_waits_for_it) {
    HostedWorld world;
    ASSERT_EQ(::mkfifo((world.drivesRoot() + "/c/pipe").c_str(), 0600), 0);
    EXPECT_EQ(world.files().listFiles("C:", "").names, Names{});
    EXPECT_EQ(world.files().firstNormalFile(R"(C:\pipe)"), "");
    EXPECT_EQ(raisedBy([&] { return world.files().openForReading(R"(C:\pipe)"); }), 75);
    EXPECT_EQ(raisedBy([&] { return world.files().create(R"(C:\pipe)"); }), 75);
}

TEST(HostedFiles, A_new_file_that_turns_out_unusable_is_not_left_behind) {
    HostedWorld world;
    const mode_t mask = ::umask(0222); // what is made now may not be written
    EXPECT_EQ(raisedBy([&] { return world.files().createNew(R"(C:\new.txt)"); }), 75);
    ::umask(mask);
    EXPECT_FALSE(world.exists(R"(C:\new.txt)"));
}

TEST(HostedFiles, Links_are_what_they_point_to) {
    HostedWorld world;
    world.write(R"(C:\folder\a.txt)", "abc");
    const fs::path drive = fs::path(world.drivesRoot()) / "c";
    fs::create_symlink("folder/a.txt", drive / "file link");
    fs::create_symlink("folder", drive / "folder link");
    fs::create_symlink("nowhere", drive / "dead link");
    EXPECT_EQ(world.files().listFiles("C:", "").names, Names{"file link"});
    EXPECT_EQ(world.files().listFolders("C:").names, (Names{"folder", "folder link"}));
    EXPECT_EQ(world.read(R"(C:\Folder Link\a.txt)"), "abc");
}

TEST(HostedFiles, Blanks_and_dots_behind_a_name_are_no_part_of_it) {
    HostedWorld world;
    world.write(R"(C:\a.txt)", "abc");
    EXPECT_EQ(world.read(R"(C:\a.txt. .)"), "abc");
    EXPECT_EQ(world.read("C:/a.txt "), "abc");
    EXPECT_TRUE(world.files().canListFolder(R"(C:\   )"));
}

TEST(HostedFiles, Nothing_leads_out_of_a_drive) {
    HostedWorld world;
    world.write(R"(C:\a.txt)", "abc");
    EXPECT_EQ(world.read(R"(C:\..\..\x\..\a.txt)"), "abc");
    EXPECT_EQ(world.read(R"(\a.txt)"), "abc");
    EXPECT_EQ(world.read(R"(\\?\C:\a.txt)"), "abc");
    EXPECT_EQ(world.read("C:a.txt"), "abc");
}

// What a process sees that may write no file longer than 1000 bytes: to us, a full disk.
bool aFullDiskRaises61() {
    HostedWorld world;
    std::signal(SIGXFSZ, SIG_IGN); // NOLINT(cert-err33-c)
    const rlimit thousandBytes{.rlim_cur = 1000, .rlim_max = 1000};
    const auto file = world.files().create(R"(C:\a.txt)");
    if (::setrlimit(RLIMIT_FSIZE, &thousandBytes) != 0) {
        return false;
    }
    const std::string bytes(50000, 'x');
    bool told = raisedBy([&] { file->write(bytes); }) == 0; // gathered as yet
    told = told && raisedBy([&] { file->write(bytes); }) == 61;
    told = told && raisedBy([&] { file->flush(); }) == 61;
    told = told && raisedBy([&] { file->close(); }) == 61;
    told = told && raisedBy([&] { file->close(); }) == 0;
    told = told && world.read(R"(C:\a.txt)") == bytes.substr(0, 1000);
    return told && raisedBy([&] { world.files().remove(R"(C:\a.txt)"); }) == 0;
}

TEST(HostedFiles, A_full_disk_raises_61_and_the_file_is_closed_all_the_same) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(aFullDiskRaises61() ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

// The same conversion by the C library; nothing where it has none.
std::optional<std::string> convertedByLibrary(std::string text) {
    iconv_t conversion = ::iconv_open("CP437", "CP1252");
    std::array<char, 8> converted{};
    char* from = text.data();
    std::size_t fromLeft = text.size();
    char* to = converted.data();
    std::size_t toLeft = converted.size();
    const auto result = ::iconv(conversion, &from, &fromLeft, &to, &toLeft);
    ::iconv_close(conversion);
    if (result != 0) {
        return std::nullopt;
    }
    return std::string(converted.data(), converted.size() - toLeft);
}

TEST(CodePage437, Every_character_is_converted_as_the_C_library_does) {
    int converted = 0;
    for (int code = 1; code < 256; ++code) {
        const std::string text(1, static_cast<char>(code));
        EXPECT_EQ(inCodePage437(text), convertedByLibrary(text)) << code;
        converted += inCodePage437(text) ? 1 : 0;
    }
    EXPECT_EQ(converted, 127 + 54);
}

} // namespace
} // namespace tarnwick
