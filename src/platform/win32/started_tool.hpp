#pragma once

#include "platform/tool_processes.hpp"
#include "platform/win32/handle.hpp"

#include <windows.h>

#include <string>

namespace tarnwick {

// Whether the file looks like a program: the system alone knows whether it starts. Never raises.
[[nodiscard]] bool canBeStarted(const std::string& program);

// A tool at work, with all that it starts, in a job of its own. Whoever is still at work is ended
// by the destructor, and by the system when this process ends.
class StartedTool {
  public:
    // `writer`, which can be inherited, takes both streams; it stays the caller's. Raises the
    // system's error as lastDllError.
    StartedTool(const ToolCall& call, const Handle& writer);

    // Set when the tool itself has ended.
    [[nodiscard]] HANDLE process() const noexcept { return process_.get(); }

    // Ends whoever is still at work, and returns when nobody is.
    void endAll() noexcept;

    // When the tool has ended.
    [[nodiscard]] DWORD status() const noexcept;

  private:
    Handle job_;
    Handle process_;
};

} // namespace tarnwick
