#pragma once

#include "platform/terminal.hpp"

#include <unistd.h>

#include <array>

namespace tarnwick {

// From its making on, this process ignores SIGPIPE: who reads no more is told by write().
class PosixTerminal : public Terminal {
  public:
    // The descriptors stay the caller's.
    explicit PosixTerminal(int output = STDOUT_FILENO, int error = STDERR_FILENO) noexcept;

    [[nodiscard]] bool isTerminal(Stream stream) const override;
    [[nodiscard]] int width() const override; // of where errors go, or else the output
    bool write(Stream stream, std::string_view text) override;

  private:
    struct Sink {
        int descriptor = -1;
        bool broken = false;
    };
    [[nodiscard]] const Sink& sink(Stream stream) const noexcept;

    std::array<Sink, 2> sinks_;
};

} // namespace tarnwick
