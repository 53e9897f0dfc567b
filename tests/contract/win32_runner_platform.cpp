#include "contract/runner_platform.hpp"
#include "platform/tool_command_line.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/win32_process.hpp"
#include "platform/win32/win32_tool_processes.hpp"

#include <windows.h>

#include <stdexcept>

namespace tarnwick {
namespace {

class Win32StartedProgram final : public StartedProgram {
  public:
    explicit Win32StartedProgram(HANDLE process) : process_(process) {}
    Win32StartedProgram(const Win32StartedProgram&) = delete;
    Win32StartedProgram& operator=(const Win32StartedProgram&) = delete;
    Win32StartedProgram(Win32StartedProgram&&) = delete;
    Win32StartedProgram& operator=(Win32StartedProgram&&) = delete;
    ~Win32StartedProgram() override { Win32StartedProgram::kill(); }

    void kill() override {
        TerminateProcess(process_.get(), 96);
        WaitForSingleObject(process_.get(), INFINITE);
    }

  private:
    Handle process_;
};

class Win32RunnerPlatform final : public RunnerPlatform {
  public:
    [[nodiscard]] std::string program(const std::string& name) const override {
        return Win32Process().programFolder() + name + ".exe";
    }
    [[nodiscard]] ToolEnd endOfCrash() const override {
        return {.kind = ToolEnd::Kind::Exited, .code = EXCEPTION_ACCESS_VIOLATION, .said = {}};
    }
    [[nodiscard]] std::unique_ptr<StartedProgram>
    start(const std::string& program, const std::vector<std::string>& arguments) override {
        std::vector<std::wstring> wide;
        for (const std::string& argument : arguments) {
            wide.push_back(toWide(argument));
        }
        std::wstring line = commandLineOf(toWide(program), wide);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION started{};
        if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                           &startup, &started) == 0) {
            throw std::runtime_error("cannot start " + program);
        }
        const Handle thread(started.hThread);
        return std::make_unique<Win32StartedProgram>(started.hProcess);
    }
    [[nodiscard]] bool isAtWork(unsigned long process) const override {
        const Handle opened(OpenProcess(SYNCHRONIZE, FALSE, process));
        return opened.isOpen() && WaitForSingleObject(opened.get(), 0) == WAIT_TIMEOUT;
    }
};

} // namespace

std::unique_ptr<ToolProcesses> makeToolProcesses() {
    return std::make_unique<Win32ToolProcesses>();
}

std::unique_ptr<RunnerPlatform> makeRunnerPlatform(PlatformUnderTest& /*platform*/) {
    return std::make_unique<Win32RunnerPlatform>();
}

} // namespace tarnwick
