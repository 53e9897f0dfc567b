// tarnwick-run.exe from outside, held against the window's program.

#include "platform/win32/win32_interruptions.hpp"
#include "program/console_runner.hpp"
#include "program/running_program.hpp"
#include "support/eventually.hpp"

#include <windows.h>

#include <gmock/gmock.h>

#include <cstdint>
#include <cstring>

namespace tarnwick::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

MATCHER_P2(EndsWith, status, said, "") {
    *result_listener << "status " << arg.code << ", said " << arg.said;
    return arg.kind == ToolEnd::Kind::Exited && arg.code == status && arg.said.contains(said);
}

class SameProducts : public ConsoleRunner {
  protected:
    void expectTheSame(const Products& expected) const {
        const auto made = products();
        ASSERT_EQ(made.size(), expected.size());
        for (const auto& [name, content] : expected) {
            const auto found = made.find(name);
            ASSERT_NE(found, made.end());
            EXPECT_EQ(found->second, content) << std::string(name.begin(), name.end());
        }
    }
};

TEST_F(SameProducts, As_the_command_line_of_the_window_leaves_them) {
    place.takeDemoRecords();
    place.write("in\\caf\xE9 & more.met", record("Caf\xE9s"));
    EXPECT_EQ(RunningProgram(place.program(), L"-I batch.ini").exitCode(), 0U);
    ASSERT_TRUE(eventually([&] { return place.temporaryFiles() == "MPDELETE.bat"; }));
    const auto expected = products();
    EXPECT_GT(expected.size(), 100U);
    removeProducts();
    EXPECT_THAT(run({"batch.ini", "-j4"}), EndsWith(0, "0 failed, 0 up to date"));
    expectTheSame(expected);
    EXPECT_EQ(place.temporaryFiles(), "MPDELETE.bat"); // nothing of the runner's
}

TEST_F(ConsoleRunner, Names_that_an_interpreter_would_take_for_more_are_records_like_any) {
    const std::vector<std::string> names{"100%",  "%TEMP%",    "a & md pwned", "x^y",
                                         "!now!", "it's (1);", "-l en -x",     "caf\xE9 \x80"};
    for (const std::string& name : names) {
        place.write("in\\" + name + ".met", record("Title of " + name));
    }
    EXPECT_THAT(run({"batch.ini", "-j4"}),
                EndsWith(0, std::to_string(names.size()) + " made, 0 failed"));
    for (const std::string& name : names) {
        EXPECT_THAT(place.read("out\\" + name + ".txt"), HasSubstr("Title of " + name));
    }
    EXPECT_FALSE(place.exists("pwned"));
    EXPECT_FALSE(place.exists("in\\pwned"));
}

TEST_F(ConsoleRunner, The_second_time_everything_is_up_to_date_until_something_changes) {
    place.write("in\\a.met", record("Lakes"));
    place.write("in\\b.met", record("Rivers"));
    EXPECT_THAT(run({"batch.ini"}), EndsWith(0, "2 made, 0 failed, 0 up to date"));
    EXPECT_THAT(run({"batch.ini"}), EndsWith(0, "0 made, 0 failed, 2 up to date"));
    place.write("in\\a.met", record("Larger lakes"));
    EXPECT_THAT(run({"batch.ini", "--dry-run"}), EndsWith(0, "a.met"));
    EXPECT_THAT(run({"batch.ini"}), EndsWith(0, "1 made, 0 failed, 1 up to date"));
    EXPECT_THAT(place.read("out\\a.xml"), HasSubstr("Larger lakes"));
}

TEST_F(ConsoleRunner, A_tool_that_fails_or_makes_nothing_fails_its_record) {
    place.write("in\\a.met", record("Lakes"));
    tryPatience("work fail");
    EXPECT_THAT(run({"batch.ini"}), EndsWith(1, "FAILED a.met: MP ended with status 3"));
    place.write("how", "");
    EXPECT_THAT(run({"batch.ini"}), EndsWith(1, "FAILED a.met: "));
    EXPECT_FALSE(place.exists("out\\a.xml"));
    place.write("how", "work");
    EXPECT_THAT(run({"batch.ini"}), EndsWith(0, "1 made, 0 failed"));
    EXPECT_TRUE(place.exists("out\\a.xml"));
}

TEST_F(ConsoleRunner, A_tool_that_takes_too_long_is_ended) {
    place.write("in\\a.met", record("Lakes"));
    tryPatience("wait");
    EXPECT_THAT(run({"batch.ini", "--timeout", "1s"}),
                EndsWith(1, "FAILED a.met: MP took longer than 1 s and was ended"));
}

TEST_F(ConsoleRunner, Wrong_use_and_what_cannot_be_run_end_with_2_and_a_sentence) {
    place.write("in\\a.met", record("Lakes"));
    EXPECT_THAT(run({}), EndsWith(2, "tarnwick-run: "));
    EXPECT_THAT(run({"--no-such-option"}), EndsWith(2, "tarnwick-run: "));
    EXPECT_THAT(run({"gone.ini"}), EndsWith(2, "gone.ini\" does not exist."));
    EXPECT_THAT(run({"batch.ini", "--drive", "T:=C:\\in"}), EndsWith(2, "are not for Windows"));
    EXPECT_THAT(run({"in"}), EndsWith(2, "\" is a folder."));
    EXPECT_THAT(run({"batch.ini", "none.met"}), EndsWith(2, "none.met"));
    place.write("text.exe", "no program");
    place.write("mp.bat", "@mp.exe %*\r\n");
    for (const char* const tool : {"text.exe", "mp.bat"}) {
        EXPECT_THAT(run({"batch.ini", "--mp", tool}),
                    EndsWith(2, "is no program that can be started."));
    }
    EXPECT_THAT(products(), IsEmpty());
}

TEST_F(ConsoleRunner, Reports_are_UTF_8_and_lead_to_the_products_wherever_both_are_moved) {
    place.write("in\\caf\xE9.met", "Stray t\xEDtulo\r\n" + record("Lakes"));
    EXPECT_THAT(run({"batch.ini", "--report", "r.json", "--report", "r.html"}),
                EndsWith(0, "1 made, 0 failed"));
    const std::string report = place.read("r.json");
    EXPECT_THAT(report, HasSubstr("\"caf\xC3\xA9.met\""));
    EXPECT_THAT(report, HasSubstr("Stray t\xC3\xADtulo"));
    EXPECT_THAT(report, HasSubstr("\"folder\":\"out/\""));
    EXPECT_TRUE(place.exists("r.html"));
    EXPECT_THAT(run({"batch.ini", "--fail-on", "*stray*"}),
                EndsWith(1, "FAILED caf\xE9.met: the tools say \""));
    EXPECT_TRUE(place.exists("out\\caf\xE9.xml"));
    EXPECT_THAT(run({"report", "batch.ini", "--report", "r.csv"}), EndsWith(0, "r.csv"));
    EXPECT_THAT(place.read("r.csv"), HasSubstr("the tools say"));
    EXPECT_THAT(run({"batch.ini", "--report", "gone\\r.csv"}), EndsWith(1, "cannot be written"));
    EXPECT_THAT(run({"batch.ini", "--report", "r.doc"}), EndsWith(2, "a report ends in .html"));
}

TEST_F(ConsoleRunner, Help_and_version_are_told_on_request) {
    EXPECT_THAT(run({"--version"}), EndsWith(0, "tarnwick-run 2.0.0.7\n"));
    EXPECT_THAT(run({"--help"}), EndsWith(0, "Exit status:"));
}

TEST_F(ConsoleRunner, The_end_of_the_session_ends_every_tool_and_loses_nothing_that_is_made) {
    for (const char* const name : {"a", "b", "c"}) {
        place.write("in\\" + std::string(name) + ".met", record("Lakes"));
    }
    tryPatience("wait work");
    const auto program = start("-j1");
    ASSERT_TRUE(eventually([&] { return toolsStarted() == 1; }));
    place.write("enough1", "");
    ASSERT_TRUE(eventually([&] { return toolsStarted() == 2; })); // the first record is made
    PostMessageW(program->windowOfClass(Win32Interruptions::windowClass), WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(program->exitCode(), 143U);
    // Nobody has the program open who would wait for ever.
    EXPECT_TRUE(eventually(
        [&] { return DeleteFileW((place.program().parent_path() / "mp.exe").c_str()) != 0; }));
    EXPECT_FALSE(place.exists("out\\b.xml"));
    place.add("demo/tools/mp.exe");
    EXPECT_THAT(run({"batch.ini", "--dry-run"}), EndsWith(0, "b.met"));
    EXPECT_THAT(run({"batch.ini"}), EndsWith(0, "3 made, 0 failed"));
}

TEST_F(ConsoleRunner, A_second_runner_is_told_who_is_at_work) {
    place.write("in\\a.met", record("Lakes"));
    tryPatience("wait work");
    const auto first = start("");
    ASSERT_TRUE(eventually([&] { return toolsStarted() == 1; }));
    EXPECT_THAT(run({"batch.ini"}), EndsWith(2, "at work on this definition: process "));
    place.write("enough1", "");
    EXPECT_EQ(first->exitCode(), 0U);
}

TEST_F(ConsoleRunner, The_program_is_one_for_the_console_and_tells_its_version) {
    const std::string program = place.read("tarnwick-run.exe");
    std::uint32_t header = 0;
    std::uint16_t subsystem = 0;
    std::memcpy(&header, program.data() + 0x3C, sizeof header);
    std::memcpy(&subsystem, program.data() + header + 0x5C, sizeof subsystem);
    EXPECT_EQ(subsystem, IMAGE_SUBSYSTEM_WINDOWS_CUI);
    EXPECT_LT(program.size(), 3'000'000U);
    EXPECT_THAT(program, HasSubstr(">true</longPathAware>"));
    EXPECT_THAT(program, HasSubstr("level=\"asInvoker\""));
    for (const char* const library :
         {"libstdc++-6.dll", "libgcc_s_seh-1.dll", "libwinpthread-1.dll", "uxtheme.dll"}) {
        EXPECT_FALSE(program.contains(library)) << library;
    }
    const std::string path = place.path("tarnwick-run.exe");
    DWORD unused = 0;
    std::string info(GetFileVersionInfoSizeA(path.c_str(), &unused), '\0');
    ASSERT_NE(GetFileVersionInfoA(path.c_str(), 0, static_cast<DWORD>(info.size()), info.data()),
              FALSE);
    const auto text = [&](const std::string& name) {
        void* value = nullptr;
        UINT length = 0;
        return VerQueryValueA(info.data(), (R"(\StringFileInfo\040904E4\)" + name).c_str(), &value,
                              &length) != FALSE
                   ? std::string(static_cast<const char*>(value))
                   : "no " + name;
    };
    EXPECT_EQ(text("FileVersion"), "2.0.0.7");
    EXPECT_EQ(text("OriginalFilename"), "tarnwick-run.exe");
    EXPECT_EQ(text("FileDescription"), "Tarnwick without a window");
}

} // namespace
} // namespace tarnwick::test
