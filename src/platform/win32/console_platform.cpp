#include "platform/console_platform.hpp"

#include "platform/run_time_error.hpp"
#include "platform/whole_file.hpp"
#include "platform/win32/filled_text.hpp"
#include "platform/win32/started_tool.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/win32_file_stamps.hpp"
#include "platform/win32/win32_files.hpp"
#include "platform/win32/win32_interruptions.hpp"
#include "platform/win32/win32_open_files.hpp"
#include "platform/win32/win32_process.hpp"
#include "platform/win32/win32_process_locks.hpp"
#include "platform/win32/win32_settings_store.hpp"
#include "platform/win32/win32_terminal.hpp"
#include "platform/win32/win32_tool_processes.hpp"

#include <windows.h>

#include <shellapi.h>

#include <array>
#include <ranges>
#include <span>

namespace tarnwick {
namespace {

class Win32ConsolePlatform final : public ConsolePlatform {
  public:
    Files& files() override { return files_; }
    [[nodiscard]] const FileStamps& stamps() const override { return stamps_; }
    [[nodiscard]] const ToolPaths& toolPaths() const override { return paths_; }
    ToolProcesses& processes() override { return processes_; }
    ProcessLocks& locks() override { return locks_; }
    Interruptions& interruptions() override { return interruptions_; }
    [[nodiscard]] const Process& process() const override { return process_; }
    [[nodiscard]] const SettingsStore& settings() const override { return settings_; }

    [[nodiscard]] std::string typedPath(std::string_view typed) const override {
        const std::wstring wide = toWidePath(possible(typed));
        return pathText(filledBy([&wide](wchar_t* buffer, DWORD size) {
            return GetFullPathNameW(wide.c_str(), size, buffer, nullptr);
        }));
    }

    [[nodiscard]] std::string definitionText(std::string_view path) override {
        return contentOf(*files_.openForReading(path));
    }

    [[nodiscard]] bool canStart(const std::string& path) const override {
        return canBeStarted(path);
    }

    [[nodiscard]] std::string utf8(std::string_view text) const override {
        return toCodePage(toWide(text), CP_UTF8).value_or(std::string(text));
    }

    [[nodiscard]] std::string toolText(std::string_view text) const override {
        return std::string(text);
    }

    [[nodiscard]] std::string processName() const override {
        std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> host{};
        auto size = static_cast<DWORD>(host.size());
        GetComputerNameW(host.data(), &size);
        return "process " + std::to_string(GetCurrentProcessId()) + " on " + shownText(host.data());
    }

  private:
    Win32Files files_;
    Win32FileStamps stamps_;
    WindowsToolPaths paths_;
    Win32ToolProcesses processes_;
    Win32ProcessLocks locks_;
    Win32Interruptions interruptions_;
    Win32Process process_;
    Win32SettingsStore settings_;
};

struct LocalFreeing {
    void operator()(LPWSTR* words) const noexcept { LocalFree(static_cast<void*>(words)); }
};

} // namespace

std::unique_ptr<ConsolePlatform> makeConsolePlatform(const ConsoleOptions& options) {
    if (options != ConsoleOptions()) {
        throw RunTimeError(ErrorNumber::BadFileName,
                           "--drive and --code-page are not for Windows, which has drives and a "
                           "code page of its own");
    }
    return std::make_unique<Win32ConsolePlatform>();
}

std::unique_ptr<Terminal> makeTerminal() {
    return std::make_unique<Win32Terminal>();
}

// The words that `main` gets have been through a conversion that takes what looks alike.
std::vector<std::string> programArguments(int /*count*/, const char* const* /*arguments*/) {
    int count = 0;
    const std::unique_ptr<LPWSTR, LocalFreeing> words(
        CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> texts;
    const std::span all(words.get(), static_cast<std::size_t>(count));
    for (const wchar_t* word : all | std::views::drop(1)) {
        texts.push_back(pathText(word));
    }
    return texts;
}

} // namespace tarnwick
