#include "definition/start_up.hpp"
#include "definition/stored_settings.hpp"
#include "support/fake_process.hpp"
#include "support/hosted_world.hpp"
#include "support/memory_settings_store.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

class StartUp : public testing::Test {
  protected:
    StartUp() {
        process.givenProgramFolder = "C:\\app";
        process.variables["TEMP"] = " C:\\temp ";
        world.makeFolder("C:\\app");
        world.makeFolder("C:\\temp");
    }
    BatchDefinition start() { return definitionAtStartUp(process, world.files(), settings); }

    HostedWorld world{"C:\\here"};
    FakeProcess process;
    MemorySettingsStore settings;
};

TEST_F(StartUp, Folders_tools_and_ini_file_have_their_defaults) {
    const BatchDefinition definition = start();
    BatchDefinition expected;
    MyDefaultSettings(expected);
    expected.sAppFolder = "C:\\app\\";
    expected.sTempFolder = "C:\\temp\\";
    expected.sMPExecutable = "C:\\app\\mp.exe";
    expected.sCNSExecutable = "C:\\app\\cns.exe";
    expected.sINIFile = "C:\\app\\TARNWICK.ini";
    EXPECT_EQ(definition, expected);
}

TEST_F(StartUp, Without_a_program_folder_the_current_one_is_used) {
    process.givenProgramFolder = "  ";
    EXPECT_EQ(start().sAppFolder, "C:\\here\\");
}

TEST_F(StartUp, A_folder_that_ends_in_a_backslash_gets_no_second_one) {
    process.givenProgramFolder = "C:\\";
    process.variables["TEMP"] = "C:\\temp\\";
    EXPECT_EQ(start().sAppFolder, "C:\\");
    EXPECT_EQ(start().sTempFolder, "C:\\temp\\");
}

TEST_F(StartUp, An_empty_temp_or_one_that_names_a_missing_folder_gives_the_program_folder) {
    process.variables["TEMP"] = "";
    EXPECT_EQ(start().sTempFolder, "C:\\app\\");
    process.variables["TEMP"] = "C:\\missing";
    EXPECT_EQ(start().sTempFolder, "C:\\app\\");
}

TEST_F(StartUp, Paths_that_the_system_can_name_only_by_numbers_are_counted) {
    EXPECT_EQ(namelessAtStartUp(process, settings), LeftOut{});
    process.variables["TEMP"] = R"(C:\<U+0416>\Temp)";
    EXPECT_EQ(namelessAtStartUp(process, settings),
              (LeftOut{.count = 1, .first = R"(C:\<U+0416>\Temp)"}));
    EXPECT_EQ(start().sTempFolder, "C:\\app\\");
    process.givenProgramFolder = R"(D:\<U+0416>)";
    settings.write("Corvane", "TARNWICK", "INI File Name", R"(B:\<U+0416>.ini)");
    settings.write("Corvane", "TARNWICK", "MP Executable", R"(E:\<U+0416>.exe)");
    settings.write("Corvane", "TARNWICK", "CNS Executable", R"(F:\<U+0416>.exe)");
    EXPECT_EQ(namelessAtStartUp(process, settings),
              (LeftOut{.count = 5, .first = R"(B:\<U+0416>.ini)"}));
}

TEST_F(StartUp, What_is_stored_stays_where_its_path_is_shown_by_numbers) {
    store(settings, StoredSetting::INIFileName, R"(B:\old.ini)");
    store(settings, StoredSetting::INIFileName, R"(B:\<U+0416>.ini)");
    EXPECT_EQ(readStored(settings, StoredSetting::INIFileName, "none"), R"(B:\old.ini)");
}

TEST_F(StartUp, A_tool_beside_the_program_wins_over_a_stored_location) {
    store(settings, StoredSetting::MPExecutable, "D:\\mp.exe");
    store(settings, StoredSetting::CNSExecutable, "D:\\cns.exe");
    world.write("C:\\app\\mp.exe", "");
    EXPECT_EQ(start().sMPExecutable, "C:\\app\\mp.exe");
    EXPECT_EQ(start().sCNSExecutable, "D:\\cns.exe");
}

TEST_F(StartUp, The_stored_ini_file_is_the_one_to_read) {
    store(settings, StoredSetting::INIFileName, "D:\\last.ini");
    EXPECT_EQ(start().sINIFile, "D:\\last.ini");
}

TEST_F(StartUp, Settings_are_stored_under_the_makers_and_the_programs_name) {
    store(settings, StoredSetting::INIFileName, "1");
    store(settings, StoredSetting::MPExecutable, "2");
    store(settings, StoredSetting::CNSExecutable, "3");
    EXPECT_EQ(settings.read("Corvane", "TARNWICK", "INI File Name", ""), "1");
    EXPECT_EQ(settings.read("Corvane", "TARNWICK", "MP Executable", ""), "2");
    EXPECT_EQ(settings.read("Corvane", "TARNWICK", "CNS Executable", ""), "3");
}

} // namespace
} // namespace tarnwick
