#include "platform/posix/drive_list.hpp"
#include "platform/run_time_error.hpp"
#include "support/hosted_world.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

using List = std::vector<Mount>;

// What is raised, as "number sentence"; empty where nothing is.
template <typename Body>
std::string told(Body&& body) {
    try {
        body();
    } catch (const RunTimeError& error) {
        return std::to_string(error.record().number) + ' ' + error.what();
    }
    return {};
}

std::string toldOfOption(const std::string& option) {
    return told([&] {
        static_cast<void>(
            driveList({.options = {option}, .variable = {}, .fileName = {}, .fileText = {}}));
    });
}

TEST(DriveList, Options_come_before_the_variable_and_that_before_the_file) {
    const auto list = driveList({.options = {"T:=/srv/meta", R"(\\server\share=/mnt/x)"},
                                 .variable = "U:=/u; V:=/v ;;",
                                 .fileName = "drives",
                                 .fileText = "# mine\r\n\n  T:=/other\r\nW: = /with blanks \n"});
    EXPECT_EQ(list, (List{{"T:", "/srv/meta"},
                          {R"(\\server\share)", "/mnt/x"},
                          {"U:", "/u"},
                          {"V:", "/v"},
                          {"T:", "/other"},
                          {"W:", "/with blanks"}}));
    EXPECT_EQ(Mounts::of(list).placeOf("t:").hostFolder, "/srv/meta");
}

TEST(DriveList, A_share_may_be_written_with_slashes_and_a_folder_hold_an_equals_sign) {
    EXPECT_EQ(
        driveList(
            {.options = {"//server/share=/a=b"}, .variable = {}, .fileName = {}, .fileText = {}}),
        (List{{R"(\\server\share)", "/a=b"}}));
}

TEST(DriveList, What_is_no_drive_is_told_with_its_text_and_place) {
    constexpr auto like = R"( says no drive: one is like T:=/srv/meta or \\server\share=/mnt/x)";
    for (const auto* const entry :
         {"", "T:", "T:=", "T:= ", "=/srv", "T=/srv", "TT:=/srv", "1:=/srv", R"(T:\in=/srv)",
          R"(\\server=/srv)", R"(\\server\=/srv)", R"(\\\share=/srv)", R"(\\s\h\in=/srv)",
          R"(\\s\h?=/srv)", R"(\\s\h:=/srv)", "/srv"}) {
        EXPECT_EQ(toldOfOption(entry), "52 \"" + std::string(entry) + '"' + like);
    }
    EXPECT_EQ(told([] {
                  static_cast<void>(driveList(
                      {.options = {}, .variable = "T:=/t;x", .fileName = {}, .fileText = {}}));
              }),
              std::string("52 \"x\" in TARNWICK_DRIVES") + like);
    EXPECT_EQ(told([] {
                  static_cast<void>(driveList({.options = {},
                                               .variable = {},
                                               .fileName = "/home/me/drives",
                                               .fileText = "#\n\nx y\n"}));
              }),
              std::string("52 \"x y\" in line 3 of /home/me/drives") + like);
}

class DriveSourcesHere : public testing::Test {
  protected:
    [[nodiscard]] DriveSources sources() const {
        return driveSources({"O:=/"}, [this](const std::string& name) {
            const auto found = variables_.find(name);
            return found == variables_.end() ? std::string() : found->second;
        });
    }
    void write(const std::string& file, const std::string& text) const {
        fs::create_directories(fs::path(file).parent_path());
        std::ofstream(file) << text;
    }

    TemporaryFolder folder_;
    std::string host_ = folder_.hostPath();
    std::map<std::string, std::string> variables_;
};

TEST_F(DriveSourcesHere, Are_options_variable_and_the_file_of_the_user) {
    write(host_ + "/.config/tarnwick/drives", "T:=/srv\n");
    variables_ = {{"HOME", host_}, {"TARNWICK_DRIVES", "V:=/v"}};
    const auto found = sources();
    EXPECT_EQ(found.options, std::vector<std::string>{"O:=/"});
    EXPECT_EQ(found.variable, "V:=/v");
    EXPECT_EQ(found.fileName, host_ + "/.config/tarnwick/drives");
    EXPECT_EQ(found.fileText, "T:=/srv\n");
}

TEST_F(DriveSourcesHere, The_folder_of_settings_may_be_another) {
    write(host_ + "/settings/tarnwick/drives", "T:=/srv\n");
    variables_ = {{"HOME", "/nowhere"}, {"XDG_CONFIG_HOME", host_ + "/settings"}};
    EXPECT_EQ(sources().fileText, "T:=/srv\n");
    variables_["XDG_CONFIG_HOME"] = "settings"; // no full path
    EXPECT_EQ(sources().fileName, "/nowhere/.config/tarnwick/drives");
    EXPECT_EQ(sources().fileText, "");
}

TEST_F(DriveSourcesHere, Nobody_needs_a_file) {
    EXPECT_EQ(sources().fileName, "");
    EXPECT_EQ(sources().fileText, "");
}

TEST_F(DriveSourcesHere, A_file_that_cannot_be_read_is_named) {
    fs::create_directories(host_ + "/.config/tarnwick/drives");
    variables_ = {{"HOME", host_}};
    EXPECT_EQ(told([&] { static_cast<void>(sources()); }),
              "75 The drives in " + host_ +
                  "/.config/tarnwick/drives cannot be read: Path/File access error");
}

TEST_F(DriveSourcesHere, A_folder_that_is_not_there_is_named) {
    const auto mounts = [&](const std::string& option) {
        static_cast<void>(
            mountsFrom({.options = {option}, .variable = {}, .fileName = {}, .fileText = {}}));
    };
    write(host_ + "/file", "");
    EXPECT_EQ(told([&] { mounts("T:=" + host_); }), "");
    for (const std::string& folder : {host_ + "/gone", host_ + "/file"}) {
        EXPECT_EQ(told([&] { mounts("T:=" + folder); }),
                  "76 T: should lie in \"" + folder + "\", but there is no such folder");
    }
}

} // namespace
} // namespace tarnwick
