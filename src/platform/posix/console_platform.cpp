#include "platform/console_platform.hpp"

#include "platform/posix/drive_list.hpp"
#include "platform/posix/posix_file_stamps.hpp"
#include "platform/posix/posix_files.hpp"
#include "platform/posix/posix_interruptions.hpp"
#include "platform/posix/posix_process_locks.hpp"
#include "platform/posix/posix_terminal.hpp"
#include "platform/posix/posix_tool_paths.hpp"
#include "platform/posix/posix_tool_processes.hpp"
#include "platform/posix/to_utf8.hpp"
#include "platform/run_time_error.hpp"
#include "platform/whole_file.hpp"
#include "platform/windows_path.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <span>
#include <utility>

namespace tarnwick {
namespace {

// Nothing here is a place for tools: their paths are seen from the definition's folder.
class PosixProcess final : public Process {
  public:
    [[nodiscard]] std::string commandLine() const override { return {}; }
    [[nodiscard]] std::string programFolder() const override { return {}; }
    [[nodiscard]] std::string environmentVariable(std::string_view name) const override {
        return tarnwick::environmentVariable(std::string(name));
    }
};

// No settings outlive the window's program on this system: it has none.
class NoSettings final : public SettingsStore {
  public:
    [[nodiscard]] std::string read(std::string_view /*application*/, std::string_view /*section*/,
                                   std::string_view /*key*/,
                                   std::string_view fallback) const override {
        return std::string(fallback);
    }
    void write(std::string_view /*application*/, std::string_view /*section*/,
               std::string_view /*key*/, std::string_view /*value*/) override {
        throw RunTimeError(ErrorNumber::PathFileAccess);
    }
};

bool isWindowsPath(std::string_view typed) {
    return isOnShare(typed) || beginsWithDrive(typed);
}

class PosixConsolePlatform final : public ConsolePlatform {
  public:
    PosixConsolePlatform(Mounts mounts, unsigned codePage)
        : codePage_(codePage),
          mounts_(std::move(mounts)),
          files_(mounts_, mounts_.windowsPath(".")),
          stamps_(mounts_, files_.currentFolder()),
          paths_(mounts_, files_.currentFolder()),
          locks_(mounts_, files_.currentFolder()) {}

    Files& files() override { return files_; }
    [[nodiscard]] const FileStamps& stamps() const override { return stamps_; }
    [[nodiscard]] const ToolPaths& toolPaths() const override { return paths_; }
    ToolProcesses& processes() override { return processes_; }
    ProcessLocks& locks() override { return locks_; }
    Interruptions& interruptions() override { return interruptions_; }
    [[nodiscard]] const Process& process() const override { return process_; }
    [[nodiscard]] const SettingsStore& settings() const override { return settings_; }

    [[nodiscard]] std::string typedPath(std::string_view typed) const override {
        return isWindowsPath(typed) ? std::string(typed) : mounts_.windowsPath(typed);
    }

    [[nodiscard]] std::string definitionText(std::string_view path) override {
        return toUtf8(contentOf(*files_.openForReading(path)), codePage_);
    }

    [[nodiscard]] bool canStart(const std::string& path) const override {
        const std::string host = paths_.toolPath(path);
        struct stat status{};
        return ::stat(host.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
               ::access(host.c_str(), X_OK) == 0;
    }

    [[nodiscard]] std::string utf8(std::string_view text) const override {
        return std::string(text);
    }

    // Tools that come from Windows write in its code pages here, too.
    [[nodiscard]] std::string toolText(std::string_view text) const override {
        try {
            return toUtf8(text, codePage_);
        } catch (const RunTimeError&) {
            return std::string(text);
        }
    }

    [[nodiscard]] std::string processName() const override {
        std::array<char, 256> host{};
        static_cast<void>(::gethostname(host.data(), host.size() - 1));
        return "process " + std::to_string(::getpid()) + " on " + host.data();
    }

  private:
    unsigned codePage_;
    Mounts mounts_;
    PosixFiles files_;
    PosixFileStamps stamps_;
    PosixToolPaths paths_;
    PosixToolProcesses processes_;
    PosixProcessLocks locks_;
    PosixInterruptions interruptions_;
    PosixProcess process_;
    NoSettings settings_;
};

} // namespace

std::unique_ptr<ConsolePlatform> makeConsolePlatform(const ConsoleOptions& options) {
    return std::make_unique<PosixConsolePlatform>(
        mountsFrom(driveSources(options.drives, environmentVariable)), options.codePage);
}

std::unique_ptr<Terminal> makeTerminal() {
    return std::make_unique<PosixTerminal>();
}

std::vector<std::string> programArguments(int count, const char* const* arguments) {
    const std::span all(arguments, static_cast<std::size_t>(count));
    return {all.begin() + (count > 0 ? 1 : 0), all.end()};
}

} // namespace tarnwick
