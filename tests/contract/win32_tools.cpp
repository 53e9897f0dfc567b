// What only Win32ToolProcesses promises.

#include "contract/contract_fixture.hpp"
#include "contract/runner_platform.hpp"

#include <windows.h>

namespace tarnwick {
namespace {

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
            EXPECT_EQ(ended.code, ERROR_BAD_EXE_FORMAT) << name << end;
        }
    }
    EXPECT_FALSE(exists("ran.txt"));
}

TEST_F(Win32Tools, What_cannot_be_started_has_its_code) {
    put("text.exe", "no program");
    EXPECT_EQ(run(in("missing.exe"), {}).code, ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(run(in("text.exe"), {}).code, ERROR_BAD_EXE_FORMAT);
    EXPECT_EQ(run(in("a:b.exe"), {}).code, ERROR_INVALID_NAME);
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

} // namespace
} // namespace tarnwick
