#pragma once

#include "platform/posix/file_descriptor.hpp"
#include "platform/tool_processes.hpp"

#include <sys/types.h>

#include <atomic>

namespace tarnwick {

// A tool at work, or one that could not be started.
class StartedTool {
  public:
    // Starts it as the leader of a process group, of which the number is written to `group` before
    // its program begins.
    StartedTool(const ToolCall& call, std::atomic<pid_t>& group);
    StartedTool(const StartedTool&) = delete;
    StartedTool& operator=(const StartedTool&) = delete;
    StartedTool(StartedTool&&) = delete;
    StartedTool& operator=(StartedTool&&) = delete;
    ~StartedTool() = default;

    // 0, or why it could not be started (errno).
    [[nodiscard]] int error() const noexcept { return error_; }

    // To be called once, where it was started: sleeps until it has ended, its time is over or
    // `halt` can be read; ends its group, and only then gives its number back to the system.
    [[nodiscard]] ToolEnd wait(const FileDescriptor& halt, std::optional<double> timeLimit,
                               std::atomic<pid_t>& group);

  private:
    int error_ = 0;
    pid_t process_ = -1;
    FileDescriptor ended_;  // readable when it has
    FileDescriptor output_; // what it says
};

} // namespace tarnwick
