#include "common/mod_main.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ReportError, A_report_has_five_lines_with_their_values_in_one_column) {
    ScriptedDesktop desktop;
    ReportError(
        desktop,
        {.number = 53, .source = "Tarnwick", .description = "File not found", .lastDllError = 0},
        "frmMain", "Private Sub cmdOK_Click()");
    EXPECT_THAT(
        desktop.messages,
        ElementsAre(Message{.text = "Caller:            frmMain - Private Sub cmdOK_Click()\r\n"
                                    "Source:            Tarnwick\r\n"
                                    "Number:            53\r\n"
                                    "Description:       File not found\r\n"
                                    "LastDllErrorError: 0",
                            .title = "Tarnwick",
                            .icon = MessageIcon::None,
                            .buttons = MessageButtons::Ok}));
}

TEST(ReportError, Negative_numbers_keep_their_sign) {
    ScriptedDesktop desktop;
    ReportError(desktop, {.number = -7, .source = "S", .description = "D", .lastDllError = -5}, "m",
                "p");
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages.front().text, "Caller:            m - p\r\n"
                                             "Source:            S\r\n"
                                             "Number:            -7\r\n"
                                             "Description:       D\r\n"
                                             "LastDllErrorError: -5");
}

TEST(ReportError, Error_number_0_shows_nothing) {
    ScriptedDesktop desktop;
    ReportError(desktop, {.number = 0, .source = "Tarnwick", .description = "x", .lastDllError = 5},
                "frmMain", "Private Sub cmdOK_Click()");
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST(Warning, A_warning_has_the_exclamation_icon_and_an_ok_button) {
    ScriptedDesktop desktop;
    showWarning(desktop, "text");
    showWarning(desktop, "text", "Warning!");
    EXPECT_THAT(desktop.messages, ElementsAre(Message{.text = "text",
                                                      .title = "Warning",
                                                      .icon = MessageIcon::Exclamation,
                                                      .buttons = MessageButtons::Ok},
                                              Message{.text = "text",
                                                      .title = "Warning!",
                                                      .icon = MessageIcon::Exclamation,
                                                      .buttons = MessageButtons::Ok}));
}

TEST(StartDoc, A_document_is_opened_from_drive_c_and_the_systems_result_comes_back) {
    ScriptedDesktop desktop;
    desktop.openResult = 31;
    EXPECT_EQ(StartDoc(desktop, "C:\\help.chm"), 31);
    EXPECT_THAT(desktop.opened, ElementsAre(ScriptedDesktop::Opened{.document = "C:\\help.chm",
                                                                    .workingFolder = "C:\\"}));
    EXPECT_THAT(desktop.messages, IsEmpty());
}

class DesktopThatCannotOpen : public ScriptedDesktop {
  public:
    std::int32_t openDocument(std::string_view /*document*/,
                              std::string_view /*workingFolder*/) override {
        throw RunTimeError(ErrorNumber::OutOfMemory);
    }
};

TEST(StartDoc, A_run_time_error_is_reported_and_goes_no_further) {
    DesktopThatCannotOpen desktop;
    EXPECT_EQ(StartDoc(desktop, "x"), 0);
    EXPECT_THAT(desktop.messages,
                ElementsAre(errorReport("modMain", "Function StartDoc(DocName As String) As Long",
                                        ErrorNumber::OutOfMemory)));
}

TEST(FolderExists, A_blank_path_does_not_exist) {
    const HostedWorld world;
    EXPECT_FALSE(FolderExists(world.files(), ""));
    EXPECT_FALSE(FolderExists(world.files(), "   "));
}

TEST(FolderExists, A_final_backslash_makes_no_difference) {
    HostedWorld world;
    world.makeFolder("C:\\Temp");
    EXPECT_TRUE(FolderExists(world.files(), "C:\\Temp"));
    EXPECT_TRUE(FolderExists(world.files(), "C:\\Temp\\"));
    EXPECT_FALSE(FolderExists(world.files(), "C:\\Tem"));
    EXPECT_FALSE(FolderExists(world.files(), "C:\\Tem\\"));
}

TEST(FolderExists, A_file_a_missing_drive_and_a_bad_name_are_no_folders) {
    HostedWorld world;
    world.write("C:\\a.txt", "");
    EXPECT_FALSE(FolderExists(world.files(), "C:\\a.txt"));
    EXPECT_FALSE(FolderExists(world.files(), "Q:\\"));
    EXPECT_FALSE(FolderExists(world.files(), "C:\\a*\\?"));
}

TEST(FileExists, A_blank_path_does_not_exist) {
    const HostedWorld world;
    EXPECT_FALSE(FileExists(world.files(), ""));
    EXPECT_FALSE(FileExists(world.files(), "  "));
}

TEST(FileExists, A_folder_and_a_hidden_file_do_not_count) {
    HostedWorld world;
    world.makeFolder("C:\\folder");
    world.write("C:\\hidden.txt", "");
    world.hide("C:\\hidden.txt");
    EXPECT_FALSE(FileExists(world.files(), "C:\\folder"));
    EXPECT_FALSE(FileExists(world.files(), "C:\\hidden.txt"));
}

TEST(FileExists, A_pattern_exists_when_any_normal_file_matches_it) {
    HostedWorld world;
    world.write("C:\\a.txt", "");
    EXPECT_TRUE(FileExists(world.files(), "C:\\a.txt"));
    EXPECT_TRUE(FileExists(world.files(), "C:\\*.txt"));
    EXPECT_TRUE(FileExists(world.files(), "C:\\?.txt"));
    EXPECT_FALSE(FileExists(world.files(), "C:\\*.met"));
}

TEST(FileExists, What_cannot_be_asked_does_not_exist) {
    HostedWorld world;
    world.write("C:\\a.txt", "");
    FaultyFiles faulty(world.files());
    faulty.failAt(FileOperation::FirstNormalFile, 1, RunTimeError(ErrorNumber::DiskNotReady));
    EXPECT_FALSE(FileExists(faulty, "C:\\a.txt"));
    EXPECT_FALSE(FileExists(world.files(), "C:\\missing\\a.txt"));
}

} // namespace
} // namespace tarnwick
