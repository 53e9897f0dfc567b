// The real program under the real command interpreter: what its command line does, seen from
// outside.

#include "program/installation.hpp"
#include "program/running_program.hpp"
#include "support/eventually.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnwick::test {
namespace {

using testing::HasSubstr;

class CommandLineProgram : public testing::Test {
  protected:
    CommandLineProgram() { place.write("batch.ini", place.definition()); }

    [[nodiscard]] unsigned runToEnd(const std::string& arguments) const {
        return RunningProgram(place.program(), arguments).exitCode();
    }
    [[nodiscard]] std::string batchArguments() const {
        return "-I \"" + place.path("batch.ini") + "\"";
    }
    // The batch deletes itself in the end; the delete batch stays.
    [[nodiscard]] bool batchEnds() const {
        return eventually([&] { return place.temporaryFiles() == "MPDELETE.bat"; });
    }

    Installation place;
};

TEST_F(CommandLineProgram, A_stored_definition_runs_both_tools_over_every_record_and_cleans_up) {
    place.write("in\\a.met", record("Lakes"));
    place.write("in\\b c.met", record("Rivers"));
    EXPECT_EQ(runToEnd(batchArguments()), 0U);
    ASSERT_TRUE(batchEnds()) << place.temporaryFiles();
    for (const char* base : {"a", "b c"}) {
        EXPECT_TRUE(place.exists(std::string("cns\\") + base + ".cns")) << base;
        for (const char* end :
             {".info", ".lft", ".err", ".txt", ".html", "_faq.htm", ".sgml", ".xml", ".dif"}) {
            EXPECT_TRUE(place.exists(std::string("out\\") + base + end)) << base << end;
        }
    }
    EXPECT_THAT(place.read("out\\b c.xml"), HasSubstr("Rivers"));
    EXPECT_EQ(place.read("temp\\MPDELETE.bat"), "del %1\r\n");
}

TEST_F(CommandLineProgram, Accents_in_record_and_folder_names_reach_the_tools) {
    place.makeFolder("donn\xE9"
                     "es");
    place.write("donn\xE9"
                "es\\caf\xE9 1.met",
                record("Caf\xE9s"));
    place.makeFolder("r\xE9sultats");
    place.write("batch.ini", place.definition() + "Input Folder=" +
                                 place.path("donn\xE9"
                                            "es") +
                                 "\r\nGRID_Text=" + place.path("r\xE9sultats") + "\r\n");
    EXPECT_EQ(runToEnd(batchArguments()), 0U);
    ASSERT_TRUE(batchEnds()) << place.temporaryFiles();
    EXPECT_TRUE(place.exists("cns\\caf\xE9 1.cns"));
    EXPECT_THAT(place.read("r\xE9sultats\\caf\xE9 1.txt"), HasSubstr("Caf\xE9s"));
}

TEST_F(CommandLineProgram, An_ampersand_in_the_input_folder_does_no_harm) {
    place.makeFolder("R&D");
    place.write("R&D\\a.met", record("Research"));
    EXPECT_EQ(runToEnd(batchArguments() + " -F \"" + place.path("R&D") + "\""), 0U);
    ASSERT_TRUE(batchEnds()) << place.temporaryFiles();
    EXPECT_TRUE(place.exists("out\\a.xml"));
}

TEST_F(CommandLineProgram, No_program_among_the_records_is_run_in_place_of_the_systems_own) {
    place.write("in\\\xC0.met", record("Lakes")); // not in the interpreter's own code page
    for (const char* const planted : {"in\\chcp.bat", "in\\chcp.cmd"}) {
        place.write(planted, "@echo x> \"" + place.path("planted") + "\"\r\n");
    }
    EXPECT_EQ(runToEnd(batchArguments()), 0U);
    ASSERT_TRUE(batchEnds()) << place.temporaryFiles();
    EXPECT_FALSE(place.exists("planted"));
}

TEST_F(CommandLineProgram, The_interpreter_looks_for_programs_in_the_path_alone) {
    place.write("in\\a.met", record("Lakes"));
    place.write("mp.bat",
                "@echo [%NoDefaultCurrentDirectoryInExePath%]> \"" + place.path("seen") + "\"\r\n");
    place.write("batch.ini", place.definition() + "MP EXECUTABLE=" + place.path("mp.bat") + "\r\n");
    EXPECT_EQ(runToEnd(batchArguments()), 0U);
    ASSERT_TRUE(batchEnds()) << place.temporaryFiles();
    EXPECT_EQ(place.read("seen"), "[1]\r\n");
}

TEST_F(CommandLineProgram, A_bare_ini_name_is_found_beside_the_program) {
    place.write("in\\a.met", record("Lakes"));
    EXPECT_EQ(runToEnd("-i batch.ini -e *.met"), 0U);
    ASSERT_TRUE(batchEnds()) << place.temporaryFiles();
    EXPECT_TRUE(place.exists("out\\a.xml"));
}

TEST_F(CommandLineProgram, A_temp_that_names_no_folder_puts_the_batch_beside_the_program) {
    place.write("in\\a.met", record("Lakes"));
    _putenv_s("TEMP", place.path("missing").c_str());
    EXPECT_EQ(runToEnd(batchArguments()), 0U);
    EXPECT_TRUE(
        eventually([&] { return place.exists("out\\a.dif") && !place.exists("MP_CL.bat"); }));
    EXPECT_TRUE(place.exists("MPDELETE.bat"));
    EXPECT_EQ(place.temporaryFiles(), "");
}

TEST_F(CommandLineProgram, A_temp_that_cannot_be_written_is_reported) {
    place.write("in\\a.met", record("Lakes"));
    place.makeFolder("temp\\MPDELETE.bat"); // in the way of the first file to be written
    RunningProgram program(place.program(), batchArguments());
    const HWND report = program.window("Tarnwick");
    EXPECT_THAT(messageOf(report),
                testing::StartsWith("Caller:            frmMain - Public Sub RunCommandLine(ByVal "
                                    "sTarnwickCommandLine As String)\r\n"
                                    "Source:            Tarnwick\r\n"
                                    "Number:            75\r\n"
                                    "Description:       Path/File access error\r\n"
                                    "LastDllErrorError: "));
    press(report, "OK");
    EXPECT_EQ(program.exitCode(), 1U);
}

TEST_F(CommandLineProgram, A_notification_is_shown_and_then_removed) {
    place.write("in\\a.met", record("Lakes"));
    EXPECT_EQ(runToEnd(batchArguments() + " -n"), 0U);
    HWND notepad = nullptr;
    ASSERT_TRUE(eventually([&] {
        notepad = FindWindowA("Notepad", nullptr);
        return notepad != nullptr;
    }));
    EXPECT_TRUE(place.exists("out\\a.dif"));
    EXPECT_EQ(place.read("temp\\MP_Notify.txt"),
              "The Tarnwick script \"" + place.path("temp\\MP_CL.bat") + "\" is done running.\r\n");
    PostMessageA(notepad, WM_CLOSE, 0, 0);
    EXPECT_TRUE(batchEnds()) << place.temporaryFiles();
}

TEST_F(CommandLineProgram, An_unknown_option_shows_the_help_and_writes_nothing) {
    RunningProgram program(place.program(), batchArguments() + " -x");
    const HWND help = program.window("Command Line Help on Tarnwick");
    const HWND text = FindWindowExA(help, nullptr, "Edit", nullptr);
    EXPECT_THAT(textOf(text), testing::StartsWith("Syntax: Tarnwick.exe -I INI_file [-F "
                                                  "input_folder] [-e input_file_extensions] [-n] "
                                                  "\r\n\r\nOptions:\r\n  -I  INI_file      "));
    press(help, "OK");
    EXPECT_EQ(program.exitCode(), 1U);
    EXPECT_EQ(place.temporaryFiles(), "");
}

TEST_F(CommandLineProgram, A_missing_ini_file_is_named) {
    RunningProgram program(place.program(), "-I nothing.ini");
    const HWND message = program.window("Warning");
    EXPECT_EQ(messageOf(message),
              "The INI file \"" + place.path("nothing.ini") + "\" does not exist.");
    press(message, "OK");
    EXPECT_EQ(program.exitCode(), 1U);
    EXPECT_EQ(place.temporaryFiles(), "");
}

TEST_F(CommandLineProgram, An_ini_file_that_another_program_keeps_to_itself_is_reported) {
    const HANDLE kept = CreateFileA(place.path("batch.ini").c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    RunningProgram program(place.program(), batchArguments());
    const HWND report = program.window("Tarnwick");
    EXPECT_THAT(messageOf(report), HasSubstr("Public Sub ReadINIFile()"));
    press(report, "OK");
    CloseHandle(kept);
    EXPECT_EQ(program.exitCode(), 1U);
    EXPECT_EQ(place.temporaryFiles(), "");
}

TEST_F(CommandLineProgram, A_missing_tool_can_be_found_in_the_options) {
    place.write("in\\a.met", record("Lakes"));
    place.write("batch.ini",
                place.definition() + "Process CNS=0\r\nMP EXECUTABLE=C:\\nowhere\\mp.exe\r\n");
    RunningProgram program(place.program(), batchArguments());
    const HWND message = program.window("Warning");
    EXPECT_EQ(messageOf(message), "The MP executable file \"C:\\nowhere\\mp.exe\" does not exist."
                                  "\r\nPlease specify the MP executable location.");
    press(message, "OK");
    const HWND options = program.window("Options");
    const HWND field = FindWindowExA(options, nullptr, "Edit", nullptr);
    fill(options, GetDlgCtrlID(field), place.path("mp.exe"));
    press(options, "OK");
    EXPECT_EQ(program.exitCode(), 0U);
    ASSERT_TRUE(batchEnds()) << place.temporaryFiles();
    EXPECT_TRUE(place.exists("out\\a.xml"));
}

TEST_F(CommandLineProgram, A_tool_that_stays_missing_ends_it) {
    place.write("in\\a.met", record("Lakes"));
    place.write("batch.ini",
                place.definition() + "Process MP=0\r\nCNS EXECUTABLE=C:\\nowhere\\cns.exe\r\n");
    RunningProgram program(place.program(), batchArguments());
    press(program.window("Warning"), "OK");
    press(program.window("Options"), "Cancel");
    const HWND last = program.window("Warning");
    EXPECT_EQ(messageOf(last), "The CNS executable file \"C:\\nowhere\\cns.exe\" does not exist.");
    press(last, "OK");
    EXPECT_EQ(program.exitCode(), 1U);
    EXPECT_EQ(place.temporaryFiles(), "");
}

} // namespace
} // namespace tarnwick::test
