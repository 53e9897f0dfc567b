#pragma once

#include "platform/interruptions.hpp"

#include <csignal>
#include <thread>

namespace tarnwick {

// SIGINT asks, SIGTERM and SIGHUP order; one that the process was started to ignore (nohup, a shell
// that starts it in the background) stays ignored. From listen() on they are blocked in every
// thread; a program that this process starts inherits that unless it is started with a mask of its
// own.
class PosixInterruptions : public Interruptions {
  public:
    PosixInterruptions() = default;
    PosixInterruptions(const PosixInterruptions&) = delete;
    PosixInterruptions& operator=(const PosixInterruptions&) = delete;
    PosixInterruptions(PosixInterruptions&&) = delete;
    PosixInterruptions& operator=(PosixInterruptions&&) = delete;
    // By the thread that listens: signals are again what they were.
    ~PosixInterruptions() override;

    void listen(std::function<void(Interruption)> heard) override;

  private:
    sigset_t before_{};
    std::jthread listener_;
};

} // namespace tarnwick
