// What only the Win32 side of a runner of tools promises.

#include "contract/contract_fixture.hpp"
#include "contract/runner_platform.hpp"
#include "platform/console_platform.hpp"
#include "platform/windows_path.hpp"

#include <windows.h>

namespace tarnwick {
namespace {

constexpr std::int64_t notFound = ERROR_FILE_NOT_FOUND;
constexpr std::int64_t noProgram = ERROR_BAD_EXE_FORMAT;
constexpr std::int64_t noName = ERROR_INVALID_NAME;

class Win32Tools : public ContractTest {
  protected:
    [[nodiscard]] ToolEnd run(const std::string& program,
                              std::vector<std::string> arguments) const {
        return tools->run({.program = program,
                           .arguments = std::move(arguments),
                           .folder = platform->scratch(),
                           .timeLimit = {}});
    }

    std::unique_ptr<RunnerPlatform> runner = makeRunnerPlatform(*platform);
    std::unique_ptr<ToolProcesses> tools = makeToolProcesses();
};

TEST_F(Win32Tools, A_batch_file_is_no_tool_however_its_name_is_written) {
    for (const std::string_view name : {"mp.bat", "mp.cmd", "MP.Bat"}) {
        put(name, "@echo run> ran.txt\r\n");
        for (const std::string_view end : {"", ".", " ", ". .."}) {
            const ToolEnd ended = run(in(name) + std::string(end), {"a&b"});
            EXPECT_EQ(ended.kind, ToolEnd::Kind::NotStarted) << name << end;
            EXPECT_EQ(ended.code, noProgram) << name << end;
        }
    }
    EXPECT_FALSE(exists("ran.txt"));
}

TEST_F(Win32Tools, What_cannot_be_started_has_its_code) {
    put("text.exe", "no program");
    EXPECT_EQ(run(in("missing.exe"), {}).code, notFound);
    EXPECT_EQ(run(in("text.exe"), {}).code, noProgram);
    EXPECT_EQ(run(in("a:b.exe"), {}).code, noName);
}

TEST_F(Win32Tools, Nobody_of_a_call_is_left_when_it_has_ended) {
    for (int time = 0; time < 5; ++time) { // the end of a process takes its moment
        files.createFolder(in(std::to_string(time)));
        const std::string name = std::to_string(time) + "\\process";
        const ToolEnd ended = run(runner->program("tool_stub"), {"leave_one", in(name)});
        ASSERT_EQ(ended.said, "left one");
        EXPECT_FALSE(runner->isAtWork(std::stoul(get(name))));
    }
}

TEST_F(Win32Tools, A_status_is_never_negative) {
    EXPECT_EQ(run(runner->program("tool_stub"), {"status", "-1"}).code, 0xFFFFFFFFLL);
}

TEST_F(Win32Tools, A_console_is_a_terminal_that_takes_every_character) {
    EXPECT_EQ(run(runner->program("console_stub"), {}).said,
              "output is none, error is one, draws, as wide, caf\xE9 \x80, Xbc, put back");
}

TEST_F(Win32Tools, Hidden_and_system_files_are_not_listed_but_have_stamps) {
    put("a.met");
    put("hidden.met", "x");
    put("system.met", "x");
    platform->hide(in("hidden.met"));
    platform->makeSystem(in("system.met"));
    const auto listed = runner->stamps().listStamped(platform->scratch()).files;
    ASSERT_EQ(listed.size(), 1U);
    EXPECT_EQ(listed[0].name, "a.met");
    EXPECT_EQ(runner->stamps().stampOf(in("hidden.met")).value_or(Stamp()).size, 1U);
}

class Win32Console : public Win32Tools {
  protected:
    std::unique_ptr<ConsolePlatform> console = makeConsolePlatform({});
};

TEST_F(Win32Console, What_was_typed_becomes_a_full_path) {
    const auto current = platform->currentFolder();
    EXPECT_EQ(console->typedPath("a.ini"), joinPath(current, "a.ini"));
    EXPECT_EQ(console->typedPath(R"(.\b\..\a.ini)"), joinPath(current, "a.ini"));
    EXPECT_EQ(console->typedPath(R"(\\server\share\a.ini)"), R"(\\server\share\a.ini)");
    EXPECT_EQ(console->typedPath("C:/in/caf\xE9.ini"), "C:\\in\\caf\xE9.ini");
    EXPECT_EQ(raisedBy([&] { return console->typedPath("a<U+0416>.ini"); }), 52);
}

TEST_F(Win32Console, A_definition_is_read_as_it_stands) {
    const std::string text = "[x]\r\ncaf\xE9=\x80\n" + std::string(100'000, 'x');
    put("a.ini", text);
    EXPECT_TRUE(console->definitionText(in("a.ini")) == text);
    EXPECT_EQ(raisedBy([&] { return console->definitionText(in("b.ini")); }), 53);
}

TEST_F(Win32Console, A_program_can_be_started_and_what_is_none_cannot) {
    put("text.exe", "no program");
    put("empty.exe");
    put("mp.bat", "MZ");
    files.createFolder(in("folder.exe"));
    EXPECT_TRUE(console->canStart(runner->program("tool_stub")));
    for (const std::string_view name :
         {"text.exe", "empty.exe", "mp.bat", "folder.exe", "missing.exe", "a?b.exe"}) {
        EXPECT_FALSE(console->canStart(in(name))) << name;
    }
}

TEST_F(Win32Console, Text_becomes_UTF_8) {
    EXPECT_EQ(console->utf8("caf\xE9 \x80"), "caf\xC3\xA9 \xE2\x82\xAC");
}

TEST_F(Win32Console, A_process_tells_its_number_and_its_machine) {
    EXPECT_EQ(console->processName(), "process " + std::to_string(GetCurrentProcessId()) + " on " +
                                          console->process().environmentVariable("COMPUTERNAME"));
}

} // namespace
} // namespace tarnwick
