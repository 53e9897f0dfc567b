#include "contract/runner_platform.hpp"
#include "platform/posix/posix_file_stamps.hpp"
#include "platform/posix/posix_interruptions.hpp"
#include "platform/posix/posix_process_locks.hpp"
#include "platform/posix/posix_tool_processes.hpp"
#include "runner_program/started_program.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

class NativeKillableProgram final : public KillableProgram {
  public:
    NativeKillableProgram(std::vector<std::string> words, const std::string& outputs)
        : program_(std::move(words), outputs) {}

    void kill() override {
        program_.send(SIGKILL);
        program_.wait();
    }

  private:
    StartedProgram program_;
};

class NativeRunnerPlatform final : public RunnerPlatform {
  public:
    // `scratch` is a folder of a drive, which is a folder of the root of all drives.
    explicit NativeRunnerPlatform(PlatformUnderTest& platform)
        : platform_(platform),
          mounts_(Mounts::below(fs::path(platform.libraryPath(platform.scratch()))
                                    .parent_path()
                                    .parent_path()
                                    .string())) {}

    FileStamps& stamps() override { return stamps_; }
    ProcessLocks& locks() override { return locks_; }
    void setTime(const std::string& path, std::int64_t time) override {
        constexpr std::int64_t second = 1'000'000'000;
        const auto rest = (time % second + second) % second;
        const timespec written{.tv_sec = (time - rest) / second, .tv_nsec = rest};
        if (::utimensat(AT_FDCWD, platform_.libraryPath(path).c_str(),
                        std::array{written, written}.data(), 0) != 0) {
            throw std::system_error(errno, std::system_category(), path);
        }
    }
    [[nodiscard]] std::string program(const std::string& name) const override {
        return fs::read_symlink("/proc/self/exe").parent_path() / name;
    }
    [[nodiscard]] ToolEnd endOfCrash() const override {
        return {.kind = ToolEnd::Kind::Signalled, .code = SIGTRAP, .said = {}};
    }
    [[nodiscard]] std::unique_ptr<KillableProgram>
    start(const std::string& program, const std::vector<std::string>& arguments) override {
        std::vector<std::string> words{program};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return std::make_unique<NativeKillableProgram>(
            std::move(words), platform_.libraryPath(platform_.scratch() + "\\said"));
    }
    [[nodiscard]] bool isAtWork(unsigned long process) const override {
        return isAlive(static_cast<pid_t>(process));
    }

  private:
    PlatformUnderTest& platform_;
    Mounts mounts_;
    PosixFileStamps stamps_{mounts_, platform_.scratch()};
    PosixProcessLocks locks_{mounts_, platform_.scratch()};
};

} // namespace

std::unique_ptr<ToolProcesses> makeToolProcesses() {
    return std::make_unique<PosixToolProcesses>();
}

std::unique_ptr<Interruptions> makeInterruptions() {
    return std::make_unique<PosixInterruptions>();
}

std::unique_ptr<HeldLock> takeLock(const std::string& file, std::string_view holder) {
    const fs::path path(file);
    const auto mounts = Mounts::of({{.volume = "T:", .hostFolder = path.parent_path().string()}});
    return PosixProcessLocks(mounts, "T:\\").tryLock("T:\\" + path.filename().string(), holder);
}

void interruptSelf(Interruption interruption) {
    ::kill(::getpid(), interruption == Interruption::Asked ? SIGINT : SIGTERM);
}

void loseOutput() {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::close(ends[0]);
        ::close(ends[1]);
    }
}

std::unique_ptr<RunnerPlatform> makeRunnerPlatform(PlatformUnderTest& platform) {
    return std::make_unique<NativeRunnerPlatform>(platform);
}

} // namespace tarnwick
