#include "platform/posix/posix_terminal.hpp"

#include <poll.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <csignal>
#include <cstddef>

namespace tarnwick {
namespace {

// Waits where the other end is slow, and the descriptor was made such that a write does not.
bool waitsForRoom(int descriptor) {
    pollfd request{.fd = descriptor, .events = POLLOUT, .revents = 0};
    return ::poll(&request, 1, -1) > 0 || errno == EINTR;
}

bool writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const auto count = ::write(descriptor, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR && (errno != EAGAIN || !waitsForRoom(descriptor))) {
            return false;
        }
    }
    return true;
}

} // namespace

PosixTerminal::PosixTerminal(int output, int error) noexcept
    : sinks_{Sink{.descriptor = output}, Sink{.descriptor = error}} {
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
}

const PosixTerminal::Sink& PosixTerminal::sink(Stream stream) const noexcept {
    return sinks_[stream == Stream::Output ? 0 : 1];
}

bool PosixTerminal::isTerminal(Stream stream) const {
    return ::isatty(sink(stream).descriptor) != 0;
}

int PosixTerminal::width() const {
    for (const Stream stream : {Stream::Error, Stream::Output}) {
        winsize size{};
        if (::ioctl(sink(stream).descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
            return size.ws_col;
        }
    }
    constexpr int unknown = 80;
    return unknown;
}

bool PosixTerminal::write(Stream stream, std::string_view text) {
    Sink& to = sinks_[stream == Stream::Output ? 0 : 1];
    to.broken = to.broken || !writeAll(to.descriptor, text);
    return !to.broken;
}

} // namespace tarnwick
