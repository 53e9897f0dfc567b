#include "platform/posix/process_warden.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <new>
#include <span>

namespace tarnwick {
namespace {

void waitForEnd(const FileDescriptor& pipe) noexcept {
    char nothing = 0;
    while (::read(pipe.get(), &nothing, 1) < 0 && errno == EINTR) {
    }
}

// Of what this process was given only that pipe stays: somebody may wait for the rest to be closed.
void closeAllBut(int descriptor) noexcept {
    static_cast<void>(::close_range(0, static_cast<unsigned>(descriptor) - 1, 0));
    static_cast<void>(::close_range(static_cast<unsigned>(descriptor) + 1, ~0U, 0));
}

} // namespace

ProcessWarden::ProcessWarden() {
    constexpr std::size_t size = places * sizeof(std::atomic<pid_t>);
    void* const shared = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, // NOLINT(*-signed-bitwise)
                                MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) { // NOLINT(*-cstyle-cast,*-int-to-ptr): the system's own
        throw std::bad_alloc();
    }
    groups_ = static_cast<std::atomic<pid_t>*>(shared); // all of them 0
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    const FileDescriptor watched(ends[0]);
    life_ = FileDescriptor(ends[1]);
    warden_ = ::fork();
    if (warden_ == 0) {
        keepWatch(watched);
        ::_exit(0);
    }
}

ProcessWarden::~ProcessWarden() {
    {
        const FileDescriptor closed = std::move(life_);
    }
    if (warden_ > 0) {
        while (::waitpid(warden_, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    ::munmap(groups_, places * sizeof(std::atomic<pid_t>));
}

std::atomic<pid_t>* ProcessWarden::takePlace() noexcept {
    for (std::atomic<pid_t>& place : std::span(groups_, places)) {
        pid_t none = 0;
        if (place.compare_exchange_strong(none, taken)) {
            return &place;
        }
    }
    return nullptr;
}

void ProcessWarden::givePlaceBack(std::atomic<pid_t>* place) noexcept {
    *place = 0;
}

// In a session of its own: what the user's terminal sends to the rest does not reach it.
void ProcessWarden::keepWatch(const FileDescriptor& pipe) noexcept {
    ::setsid();
    sigset_t all{};
    ::sigfillset(&all);
    ::sigprocmask(SIG_SETMASK, &all, nullptr);
    closeAllBut(pipe.get());
    waitForEnd(pipe);
    for (const std::atomic<pid_t>& place : std::span(groups_, places)) {
        if (const pid_t group = place; group > 0) {
            ::kill(-group, SIGKILL);
        }
    }
}

} // namespace tarnwick
