#pragma once

#include "platform/posix/file_descriptor.hpp"
#include "platform/posix/process_warden.hpp"
#include "platform/tool_processes.hpp"

#include <atomic>

namespace tarnwick {

// Each tool leads a process group of its own, which is ended with it. To be made before there are
// threads (see ProcessWarden).
class PosixToolProcesses final : public ToolProcesses {
  public:
    // Raises 67 where the system has no descriptors left.
    PosixToolProcesses();

    [[nodiscard]] ToolEnd run(const ToolCall& call) override;
    void halt() noexcept override;

  private:
    ProcessWarden warden_;
    FileDescriptor halt_; // readable, for everybody, once all is to end
    std::atomic<bool> halted_ = false;
};

} // namespace tarnwick
