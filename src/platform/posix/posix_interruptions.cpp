#include "platform/posix/posix_interruptions.hpp"

#include <csignal>
#include <utility>

namespace tarnwick {
namespace {

sigset_t interruptingSignals() {
    sigset_t signals{};
    ::sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action{};
        if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN) {
            ::sigaddset(&signals, signal);
        }
    }
    return signals;
}

// Wakes the listener for its end; this signal is blocked there, and goes to nobody else.
constexpr int endSignal = SIGUSR2;

} // namespace

PosixInterruptions::~PosixInterruptions() {
    if (!listener_.joinable()) {
        return;
    }
    listener_.request_stop();
    ::pthread_kill(listener_.native_handle(), endSignal);
    listener_.join();
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

void PosixInterruptions::listen(std::function<void(Interruption)> heard) {
    auto signals = interruptingSignals();
    ::sigaddset(&signals, endSignal);
    ::pthread_sigmask(SIG_BLOCK, &signals, &before_);
    listener_ = std::jthread([signals, heard = std::move(heard)](const std::stop_token& stop) {
        int signal = 0;
        while (::sigwait(&signals, &signal) == 0 && !stop.stop_requested()) {
            if (signal != endSignal) {
                heard(signal == SIGINT ? Interruption::Asked : Interruption::Ordered);
            }
        }
    });
}

} // namespace tarnwick
