#include "platform/win32/win32_tool_processes.hpp"

#include "platform/win32/errors.hpp"
#include "platform/win32/output_pipe.hpp"
#include "platform/win32/started_tool.hpp"

#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <new>

namespace tarnwick {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

// How long the system may let us sleep; it wakes us at the latest after some weeks, and is asked
// again.
DWORD milliseconds(const std::optional<double>& left) {
    constexpr DWORD most = INFINITE - 1;
    return left ? static_cast<DWORD>(std::clamp(std::ceil(*left * 1000), 0.0, double{most}))
                : INFINITE;
}

// Returns when the tool has ended or is to be ended.
ToolEnd::Kind waitFor(const StartedTool& tool, OutputPipe& pipe, KeptOutput& output,
                      const Handle& halted, const std::optional<double>& timeLimit,
                      Clock::time_point begin) {
    for (;;) {
        std::optional<double> left;
        if (timeLimit) {
            left = *timeLimit - secondsSince(begin);
        }
        // Of several that are set the first is told.
        const std::array events{tool.process(), halted.get(), pipe.event()};
        const DWORD count = pipe.isListening() ? 3 : 2;
        const DWORD woken = WaitForMultipleObjects(count, events.data(), FALSE, milliseconds(left));
        requireDone(woken == WAIT_FAILED ? FALSE : TRUE);
        if (woken == WAIT_OBJECT_0) {
            return ToolEnd::Kind::Exited;
        }
        if (woken == WAIT_OBJECT_0 + 1) {
            return ToolEnd::Kind::Halted;
        }
        if (left && *left <= 0) {
            return ToolEnd::Kind::TimedOut;
        }
        pipe.takeArrived(output);
    }
}

} // namespace

Win32ToolProcesses::Win32ToolProcesses()
    : halted_(required(CreateEventW(nullptr, TRUE, FALSE, nullptr))) {
    // Tools inherit this: one that crashes or finds no disk in a drive is told so, and does not
    // wait for somebody to close a message.
    SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX |
                 SEM_NOOPENFILEERRORBOX);
}

ToolEnd Win32ToolProcesses::run(const ToolCall& call) {
    const auto begin = Clock::now();
    ToolEnd end;
    if (WaitForSingleObject(halted_.get(), 0) == WAIT_OBJECT_0) {
        end.kind = ToolEnd::Kind::Halted;
        return end;
    }
    try {
        OutputPipe pipe;
        StartedTool tool(call, pipe.takeWriter());
        KeptOutput output;
        pipe.listen();
        end.kind = waitFor(tool, pipe, output, halted_, call.timeLimit, begin);
        tool.endAll();
        while (pipe.takeArrived(output)) {
        }
        end.code = end.kind == ToolEnd::Kind::Exited ? tool.status() : 0;
        end.said = output.text();
    } catch (const RunTimeError& error) {
        end.kind = ToolEnd::Kind::NotStarted;
        end.code = error.record().lastDllError;
    } catch (const std::bad_alloc&) {
        end.kind = ToolEnd::Kind::NotStarted;
        end.code = ERROR_NOT_ENOUGH_MEMORY;
    }
    end.seconds = secondsSince(begin);
    return end;
}

void Win32ToolProcesses::halt() noexcept {
    SetEvent(halted_.get());
}

} // namespace tarnwick
