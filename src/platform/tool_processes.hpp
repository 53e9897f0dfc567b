#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarnwick {

// A program to be started by an argument list: no interpreter reads it, so that every character
// arrives as it is.
struct ToolCall {
    std::string program; // its file, as the system names files (see tool_paths.hpp)
    std::vector<std::string> arguments;
    std::string folder;              // that it works in, likewise
    std::optional<double> timeLimit; // seconds

    bool operator==(const ToolCall&) const = default;
};

// How a call ended.
struct ToolEnd {
    enum class Kind {
        Exited,     // by itself; `code` is its status
        Signalled,  // ended by a signal that did not come from us; `code` is its number
        TimedOut,   // by us, its time being over
        Halted,     // by us, or not begun, because of halt()
        NotStarted, // `code` is the system's error
    };

    Kind kind = Kind::Exited;
    std::int64_t code = 0;
    double seconds = 0;
    // What it wrote to its output and error streams, as it came, as far as it is kept: see
    // KeptOutput in kept_output.hpp.
    std::string said;

    bool operator==(const ToolEnd&) const = default;
};

// Starts outside tools and waits for them. Every call may be made from several threads at once.
class ToolProcesses {
  public:
    virtual ~ToolProcesses() = default;

    // Starts the tool, with nothing to read from, and sleeps until it has ended. Whatever it has
    // started and left behind is ended then too; so is all of that, at once, when the time is over,
    // after halt(), and when this process itself ends in whatever way. Never raises.
    [[nodiscard]] virtual ToolEnd run(const ToolCall& call) = 0;

    // From now on every tool at work is ended, and none is started. For good.
    virtual void halt() noexcept = 0;
};

} // namespace tarnwick
