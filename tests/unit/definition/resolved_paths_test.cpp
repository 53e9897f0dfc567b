#include "definition/resolved_paths.hpp"
#include "support/hosted_world.hpp"
#include "support/outputs.hpp"

#include <gtest/gtest.h>

#include <string>

namespace tarnwick {
namespace {

TEST(ResolvedPaths, A_tool_or_a_settings_file_is_seen_from_the_programs_folder) {
    const auto file = [](std::string_view path) { return resolvedFile("C:\\app\\", path); };
    EXPECT_EQ(file("mp.exe"), R"(C:\app\mp.exe)");
    EXPECT_EQ(file(R"(tools\mp.exe)"), R"(C:\app\tools\mp.exe)");
    EXPECT_EQ(file(R"(..\tools\.\mp.exe)"), R"(C:\tools\mp.exe)");
    EXPECT_EQ(file(R"(\tools\mp.exe)"), R"(C:\tools\mp.exe)");
    EXPECT_EQ(file("D:mp.exe"), R"(D:\mp.exe)");
}

TEST(ResolvedPaths, What_is_full_or_blank_stays_as_it_was_typed) {
    for (const std::string_view path : {"", "  ", R"(C:\a\..\mp.exe)", R"( C:\mp.exe )",
                                        R"(\\server\share\mp.exe)", "c:/mp.exe", R"(C:\out\)"}) {
        EXPECT_EQ(resolvedFile("C:\\app\\", path), path);
    }
}

TEST(ResolvedPaths, An_output_folder_is_seen_from_the_input_folder) {
    const HostedWorld world;
    EXPECT_EQ(resolvedFolder(R"(D:\in)", world.files(), R"(..\out)"), R"(D:\out)");
    EXPECT_EQ(resolvedFolder(R"(\\server\share\in\)", world.files(), "out"),
              R"(\\server\share\in\out)");
    EXPECT_EQ(resolvedFolder(R"(\\server\share\in)", world.files(), R"(\out)"),
              R"(\\server\share\out)");
}

TEST(ResolvedPaths, An_input_folder_that_is_not_full_itself_is_seen_from_the_current_folder) {
    HostedWorld world(R"(C:\work)");
    EXPECT_EQ(resolvedFolder("in", world.files(), "out"), R"(C:\work\in\out)");
}

TEST(ResolvedPaths, Everything_that_a_tool_is_given_is_resolved_and_nothing_else) {
    const HostedWorld world;
    BatchDefinition definition;
    LoadDefaultGridSettings(definition);
    definition.sAppFolder = "C:\\app\\";
    definition.sInputFolder = R"(D:\in)";
    definition.sMPExecutable = "mp.exe";
    definition.sCNSExecutable = R"(t\cns.exe)";
    definition.sConfigFile = "a.cfg";
    definition.sAliasesFile = "a.txt";
    definition.sCNSOutputFolder = "cns";
    definition.sCommandLineLogFile = "run.log";
    output(definition, "Error").sOutputFolder = "out";
    output(definition, "Leftovers").sOutputFolder = "left";
    BatchDefinition expected = definition;
    expected.sMPExecutable = R"(C:\app\mp.exe)";
    expected.sCNSExecutable = R"(C:\app\t\cns.exe)";
    expected.sConfigFile = R"(C:\app\a.cfg)";
    expected.sAliasesFile = R"(C:\app\a.txt)";
    expected.sCNSOutputFolder = R"(D:\in\cns)";
    output(expected, "Error").sOutputFolder = R"(D:\in\out)";
    output(expected, "Leftovers").sOutputFolder = R"(D:\in\left)";
    EXPECT_EQ(withResolvedPaths(definition, world.files()), expected);
}

} // namespace
} // namespace tarnwick
