#include "platform/posix/posix_process_locks.hpp"

#include "platform/posix/errors.hpp"
#include "platform/posix/posix_open_files.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

namespace tarnwick {
namespace {

class PosixHeldLock : public HeldLock {
  public:
    explicit PosixHeldLock(FileDescriptor file) : file_(std::move(file)) {}

  private:
    FileDescriptor file_; // the system gives the lock free when it is closed
};

FileDescriptor openLockFile(const std::string& hostPath) {
    constexpr mode_t everybody = 0666; // less what the user's mask takes away
    FileDescriptor file(
        ::open(hostPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, everybody));
    if (!file.isOpen()) {
        raiseSystemError(errno);
    }
    requireReplaceable(statusOf(file));
    return file;
}

bool lock(const FileDescriptor& file) {
    if (::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
        return true;
    }
    if (errno != EWOULDBLOCK) {
        raiseSystemError(errno);
    }
    return false;
}

} // namespace

std::unique_ptr<HeldLock> PosixProcessLocks::tryLock(std::string_view path,
                                                     std::string_view holder) {
    auto file = openLockFile(paths_.hostPath(path));
    if (!lock(file)) {
        return nullptr;
    }
    if (::ftruncate(file.get(), 0) != 0) {
        raiseSystemError(errno);
    }
    while (!holder.empty()) {
        holder.remove_prefix(writeSome(file, holder));
    }
    return std::make_unique<PosixHeldLock>(std::move(file));
}

std::string PosixProcessLocks::holderOf(std::string_view path) const {
    try {
        return textOf(paths_.hostPath(path));
    } catch (const RunTimeError&) {
        return {};
    }
}

} // namespace tarnwick
