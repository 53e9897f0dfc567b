#include "platform/posix/posix_tool_processes.hpp"

#include "platform/posix/errors.hpp"
#include "platform/posix/started_tool.hpp"

#include <sys/eventfd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>

namespace tarnwick {
namespace {

// A NUL ends what a program is given: it would get something else.
bool canBeGiven(const ToolCall& call) {
    return std::ranges::none_of(
        call.arguments, [](const std::string& argument) { return argument.contains('\0'); });
}

} // namespace

PosixToolProcesses::PosixToolProcesses() : halt_(::eventfd(0, EFD_CLOEXEC)) {
    if (!halt_.isOpen()) {
        raiseSystemError(errno);
    }
}

ToolEnd PosixToolProcesses::run(const ToolCall& call) {
    ToolEnd end;
    if (halted_) {
        end.kind = ToolEnd::Kind::Halted;
        return end;
    }
    if (!canBeGiven(call)) {
        end.kind = ToolEnd::Kind::NotStarted;
        end.code = EINVAL;
        return end;
    }
    std::atomic<pid_t>* const place = warden_.takePlace();
    if (place == nullptr) {
        end.kind = ToolEnd::Kind::NotStarted;
        end.code = EAGAIN;
        return end;
    }
    StartedTool tool(call, *place);
    if (tool.error() != 0) {
        end.kind = ToolEnd::Kind::NotStarted;
        end.code = tool.error();
    } else {
        end = tool.wait(halt_, call.timeLimit, *place);
    }
    warden_.givePlaceBack(place);
    return end;
}

void PosixToolProcesses::halt() noexcept {
    halted_ = true;
    const std::uint64_t one = 1;
    while (::write(halt_.get(), &one, sizeof one) < 0 && errno == EINTR) {
    }
}

} // namespace tarnwick
