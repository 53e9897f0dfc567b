#pragma once

#include "platform/kept_output.hpp"
#include "platform/win32/handle.hpp"

#include <windows.h>

#include <array>
#include <cstddef>
#include <utility>

namespace tarnwick {

// The pipe that a tool writes to. It is read piece by piece, whenever the event is set, so that its
// reader can wait for other things at the same time.
class OutputPipe {
  public:
    // Raises the system's error.
    OutputPipe();
    OutputPipe(const OutputPipe&) = delete;
    OutputPipe& operator=(const OutputPipe&) = delete;
    OutputPipe(OutputPipe&&) = delete;
    OutputPipe& operator=(OutputPipe&&) = delete;
    ~OutputPipe();

    // The end to write to, which a process can inherit; to be closed here when it has been.
    [[nodiscard]] Handle takeWriter() noexcept { return std::move(writer_); }

    // Begins to read. The event is set when something has come or nobody can write any more.
    void listen();
    [[nodiscard]] HANDLE event() const noexcept { return event_.get(); }

    // Takes what has come and goes on listening; false when nothing has.
    bool takeArrived(KeptOutput& output);

    // Whether more may come; else the event is never set again.
    [[nodiscard]] bool isListening() const noexcept { return listening_; }

  private:
    Handle event_;
    Handle reader_;
    Handle writer_;
    OVERLAPPED overlapped_{};
    std::array<char, 64UZ * 1024> block_{};
    bool listening_ = false;
};

} // namespace tarnwick
