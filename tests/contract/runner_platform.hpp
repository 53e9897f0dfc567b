#pragma once

#include "contract/platform_under_test.hpp"
#include "platform/tool_processes.hpp"

#include <memory>
#include <string>
#include <vector>

namespace tarnwick {

// A program that a test has started; ended, at once and without being asked, by the destructor at
// the latest.
class StartedProgram {
  public:
    virtual ~StartedProgram() = default;
    virtual void kill() = 0; // and waits until it is gone
};

// One system's implementation of what a runner of tools asks of it.
[[nodiscard]] std::unique_ptr<ToolProcesses> makeToolProcesses();

// Beside them, what a test must arrange behind the interfaces' back. Programs and their folders are
// named as the system names files.
class RunnerPlatform {
  public:
    virtual ~RunnerPlatform() = default;

    // A program of these tests.
    [[nodiscard]] virtual std::string program(const std::string& name) const = 0;
    // How a tool ends that crashes: its kind and its code.
    [[nodiscard]] virtual ToolEnd endOfCrash() const = 0;
    [[nodiscard]] virtual std::unique_ptr<StartedProgram>
    start(const std::string& program, const std::vector<std::string>& arguments) = 0;
    // Whether the process of that number is at work.
    [[nodiscard]] virtual bool isAtWork(unsigned long process) const = 0;
};

// Defined once for each system. `platform` outlives it.
[[nodiscard]] std::unique_ptr<RunnerPlatform> makeRunnerPlatform(PlatformUnderTest& platform);

} // namespace tarnwick
