#include "platform/win32/win32_process_locks.hpp"

#include "platform/run_time_error.hpp"
#include "platform/whole_file.hpp"
#include "platform/win32/errors.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/win32_open_files.hpp"

#include <windows.h>

#include <utility>

namespace tarnwick {
namespace {

class Win32HeldLock : public HeldLock {
  public:
    explicit Win32HeldLock(Handle file) : file_(std::move(file)) {}

  private:
    Handle file_; // the system gives the lock free when it is closed
};

bool lock(const Handle& file) {
    OVERLAPPED place{};
    place.OffsetHigh = 0x40000000;
    if (LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                   &place) != 0) {
        return true;
    }
    const auto systemError = GetLastError();
    if (systemError != ERROR_LOCK_VIOLATION && systemError != ERROR_IO_PENDING) {
        raiseSystemError(systemError);
    }
    return false;
}

} // namespace

std::unique_ptr<HeldLock> Win32ProcessLocks::tryLock(std::string_view path,
                                                     std::string_view holder) {
    // Another may have it open as well, and write into it only when it has the lock.
    Handle file = openToWrite(possible(path), Existing::Kept, GENERIC_READ | GENERIC_WRITE,
                              FILE_SHARE_READ | FILE_SHARE_WRITE);
    if (!lock(file)) {
        return nullptr;
    }
    requireDone(SetFilePointerEx(file.get(), {}, nullptr, FILE_BEGIN));
    requireDone(SetEndOfFile(file.get()));
    while (!holder.empty()) {
        holder.remove_prefix(writeSome(file, holder));
    }
    return std::make_unique<Win32HeldLock>(std::move(file));
}

std::string Win32ProcessLocks::holderOf(std::string_view path) const {
    try {
        return contentOf(*openWin32File(possible(path)));
    } catch (const RunTimeError&) {
        return {};
    }
}

} // namespace tarnwick
