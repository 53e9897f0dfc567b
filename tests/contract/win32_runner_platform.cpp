#include "contract/runner_platform.hpp"
#include "platform/tool_command_line.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/win32_file_stamps.hpp"
#include "platform/win32/win32_interruptions.hpp"
#include "platform/win32/win32_process.hpp"
#include "platform/win32/win32_process_locks.hpp"
#include "platform/win32/win32_tool_processes.hpp"
#include "support/eventually.hpp"
#include "support/start_process.hpp"
#include "support/window_of_process.hpp"

#include <windows.h>

#include <stdexcept>

namespace tarnwick {
namespace {

class Win32KillableProgram final : public KillableProgram {
  public:
    explicit Win32KillableProgram(HANDLE process) : process_(process) {}
    Win32KillableProgram(const Win32KillableProgram&) = delete;
    Win32KillableProgram& operator=(const Win32KillableProgram&) = delete;
    Win32KillableProgram(Win32KillableProgram&&) = delete;
    Win32KillableProgram& operator=(Win32KillableProgram&&) = delete;
    ~Win32KillableProgram() override { Win32KillableProgram::kill(); }

    void kill() override {
        TerminateProcess(process_.get(), 96);
        WaitForSingleObject(process_.get(), INFINITE);
    }

  private:
    Handle process_;
};

class Win32RunnerPlatform final : public RunnerPlatform {
  public:
    FileStamps& stamps() override { return stamps_; }
    ProcessLocks& locks() override { return locks_; }
    void setTime(const std::string& path, std::int64_t time) override {
        constexpr std::int64_t from1601 = 116'444'736'000'000'000;
        const ULARGE_INTEGER ticks{.QuadPart = static_cast<ULONGLONG>(time / 100 + from1601)};
        const FILETIME written{.dwLowDateTime = ticks.LowPart, .dwHighDateTime = ticks.HighPart};
        const Handle file(CreateFileW(toWide(path).c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
        if (SetFileTime(file.get(), nullptr, nullptr, &written) == 0) {
            throw std::runtime_error("cannot set the time of " + path);
        }
    }
    [[nodiscard]] std::string program(const std::string& name) const override {
        return Win32Process().programFolder() + name + ".exe";
    }
    [[nodiscard]] ToolEnd endOfCrash() const override {
        return {.kind = ToolEnd::Kind::Exited, .code = EXCEPTION_ACCESS_VIOLATION, .said = {}};
    }
    [[nodiscard]] std::unique_ptr<KillableProgram>
    start(const std::string& program, const std::vector<std::string>& arguments) override {
        std::vector<std::wstring> wide;
        wide.reserve(arguments.size());
        for (const std::string& argument : arguments) {
            wide.push_back(toWide(argument));
        }
        const auto started = startProcess({.commandLine = commandLineOf(toWide(program), wide)});
        if (!started) {
            throw std::runtime_error("cannot start " + program);
        }
        const Handle thread(started->hThread);
        return std::make_unique<Win32KillableProgram>(started->hProcess);
    }
    [[nodiscard]] bool isAtWork(unsigned long process) const override {
        const Handle opened(OpenProcess(SYNCHRONIZE, FALSE, process));
        return opened.isOpen() && WaitForSingleObject(opened.get(), 0) == WAIT_TIMEOUT;
    }

  private:
    Win32FileStamps stamps_;
    Win32ProcessLocks locks_;
};

} // namespace

std::unique_ptr<ToolProcesses> makeToolProcesses() {
    return std::make_unique<Win32ToolProcesses>();
}

std::unique_ptr<Interruptions> makeInterruptions() {
    return std::make_unique<Win32Interruptions>();
}

std::unique_ptr<HeldLock> takeLock(const std::string& file, std::string_view holder) {
    return Win32ProcessLocks().tryLock(file, holder);
}

void interruptSelf(Interruption interruption) {
    if (interruption == Interruption::Asked) {
        // For nobody else on this console. Wine knows but Ctrl+C, for all: there the console is the
        // process's own, as it has none to inherit.
        if (GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, GetCurrentProcessId()) == 0) {
            SetConsoleCtrlHandler(nullptr, FALSE);
            GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
        }
        return;
    }
    // As the system tells the end of a session to every window.
    HWND window = nullptr;
    if (eventually([&] {
            window = windowOfProcess(GetCurrentProcessId(), Win32Interruptions::windowClass);
            return window != nullptr;
        })) {
        PostMessageW(window, WM_ENDSESSION, TRUE, ENDSESSION_LOGOFF);
    }
}

void loseOutput() {
    HANDLE reader = nullptr;
    HANDLE writer = nullptr;
    CreatePipe(&reader, &writer, nullptr, 0);
    CloseHandle(reader);
    SetStdHandle(STD_OUTPUT_HANDLE, writer);
}

std::unique_ptr<RunnerPlatform> makeRunnerPlatform(PlatformUnderTest& /*platform*/) {
    return std::make_unique<Win32RunnerPlatform>();
}

} // namespace tarnwick
