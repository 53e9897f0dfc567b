#pragma once

#include "contract/platform_under_test.hpp"
#include "platform/console_platform.hpp"
#include "platform/file_stamps.hpp"
#include "platform/interruptions.hpp"
#include "platform/process_lock.hpp"
#include "platform/tool_processes.hpp"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarnwick {

// One system's implementation of what a runner of tools asks of it; programs and their folders are
// named as the system names files. Each function is defined once for each system.

// These are for programs of the tests, too.
[[nodiscard]] std::unique_ptr<ToolProcesses> makeToolProcesses();
[[nodiscard]] std::unique_ptr<Interruptions> makeInterruptions();
// Takes the lock by ProcessLocks::tryLock.
[[nodiscard]] std::unique_ptr<HeldLock> takeLock(const std::string& file, std::string_view holder);
// As the system would interrupt this process.
void interruptSelf(Interruption interruption);
// From now on nobody takes what this process writes to its output. Before there is a Terminal.
void loseOutput();

// A program that a test has started; ended, at once and without being asked, by the destructor at
// the latest.
class KillableProgram {
  public:
    virtual ~KillableProgram() = default;
    virtual void kill() = 0; // and waits until it is gone
};

// What a test needs beside them, and must arrange behind the interfaces' back.
class RunnerPlatform {
  public:
    virtual ~RunnerPlatform() = default;

    // These take Windows paths, as the Files of the platform under test do.
    [[nodiscard]] virtual FileStamps& stamps() = 0;
    [[nodiscard]] virtual ProcessLocks& locks() = 0;
    // When the file was last written, in nanoseconds since 1970.
    virtual void setTime(const std::string& path, std::int64_t time) = 0;

    // A program of these tests.
    [[nodiscard]] virtual std::string program(const std::string& name) const = 0;
    // How a tool ends that crashes: its kind and its code.
    [[nodiscard]] virtual ToolEnd endOfCrash() const = 0;
    [[nodiscard]] virtual std::unique_ptr<KillableProgram>
    start(const std::string& program, const std::vector<std::string>& arguments) = 0;
    // Whether the process of that number is at work.
    [[nodiscard]] virtual bool isAtWork(unsigned long process) const = 0;
};

// `platform` outlives it.
[[nodiscard]] std::unique_ptr<RunnerPlatform> makeRunnerPlatform(PlatformUnderTest& platform);

} // namespace tarnwick
