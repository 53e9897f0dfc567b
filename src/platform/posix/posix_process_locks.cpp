#include "platform/posix/posix_process_locks.hpp"

#include "platform/posix/errors.hpp"
#include "platform/posix/posix_open_files.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <optional>
#include <thread>

namespace tarnwick {
namespace {

class PosixHeldLock : public HeldLock {
  public:
    explicit PosixHeldLock(FileDescriptor file) : file_(std::move(file)) {}

    // Over what is there: a reader never finds nothing.
    void write(std::string_view holder) override {
        if (::lseek(file_.get(), 0, SEEK_SET) != 0) {
            raiseSystemError(errno);
        }
        const auto size = static_cast<off_t>(holder.size());
        while (!holder.empty()) {
            holder.remove_prefix(writeSome(file_, holder));
        }
        if (::ftruncate(file_.get(), size) != 0) {
            raiseSystemError(errno);
        }
    }

  private:
    FileDescriptor file_; // the system gives the lock free when it is closed
};

FileDescriptor openLockFile(const std::string& hostPath) {
    constexpr mode_t everybody = 0666; // less what the user's mask takes away
    FileDescriptor file(::open(hostPath.c_str(),
                               O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW, everybody));
    if (!file.isOpen()) {
        raiseSystemError(errno == ELOOP ? EACCES : errno);
    }
    const auto status = statusOf(file);
    requireReplaceable(status);
    if (status.st_nlink > 1) { // what is written here would be written elsewhere
        raiseSystemError(EACCES);
    }
    return file;
}

// A byte far behind any content: where a file system keeps others from what is locked, they can
// still read who holds it. The lock belongs to the open file, not to the process, and can be asked
// for without being taken; network file systems pass it on to their servers.
struct flock lockedPlace() {
    struct flock place{};
    place.l_type = F_WRLCK;
    place.l_whence = SEEK_SET;
    place.l_start = 0x40000000;
    place.l_len = 1;
    return place;
}

bool lockAtOnce(const FileDescriptor& file) {
    auto place = lockedPlace();
    if (::fcntl(file.get(), F_OFD_SETLK, &place) == 0) {
        return true;
    }
    if (errno != EAGAIN && errno != EACCES) {
        raiseSystemError(errno);
    }
    return false;
}

// What a process was just starting when it was killed has its open files until it is a program of
// its own: so that a lock may outlive its owner for a moment.
bool lock(const FileDescriptor& file) {
    using namespace std::chrono_literals;
    constexpr auto moment = 1s;
    const auto end = std::chrono::steady_clock::now() + moment;
    while (!lockAtOnce(file)) {
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

} // namespace

std::unique_ptr<HeldLock> PosixProcessLocks::tryLock(std::string_view path,
                                                     std::string_view holder) {
    auto file = openLockFile(paths_.hostPath(path));
    if (!lock(file)) {
        return nullptr;
    }
    auto held = std::make_unique<PosixHeldLock>(std::move(file));
    held->write(holder);
    return held;
}

bool PosixProcessLocks::isHeld(std::string_view path) const {
    try {
        const FileDescriptor file = openIfThere(paths_.hostPath(path));
        auto place = lockedPlace();
        return file.isOpen() && ::fcntl(file.get(), F_OFD_GETLK, &place) == 0 &&
               place.l_type != F_UNLCK;
    } catch (const RunTimeError&) {
        return false;
    }
}

std::string PosixProcessLocks::holderOf(std::string_view path) const {
    try {
        return textOf(paths_.hostPath(path), longestHolder);
    } catch (const RunTimeError&) {
        return {};
    }
}

} // namespace tarnwick
