#pragma once

#include "platform/tool_processes.hpp"
#include "platform/win32/handle.hpp"

namespace tarnwick {

// Tools as processes in a job object of their own, which ends all of them when this process does.
// A batch file (.bat, .cmd) is not started, with the system's error for what is no program: the
// interpreter would read its arguments in its own way, and part of a record's name could become a
// command.
class Win32ToolProcesses : public ToolProcesses {
  public:
    // From now on this process and its tools show no message of the system about a crash or a
    // missing disk. Raises the system's error where it gives no event to wait for.
    Win32ToolProcesses();

    [[nodiscard]] ToolEnd run(const ToolCall& call) override;
    void halt() noexcept override;

  private:
    Handle halted_; // an event
};

} // namespace tarnwick
