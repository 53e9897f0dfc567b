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

    // Over what is there: a reader never finds nothing.
    void write(std::string_view holder) override {
        requireDone(SetFilePointerEx(file_.get(), {}, nullptr, FILE_BEGIN));
        while (!holder.empty()) {
            holder.remove_prefix(writeSome(file_, holder));
        }
        requireDone(SetEndOfFile(file_.get()));
    }

  private:
    Handle file_; // the system gives the lock free when it is closed
};

enum Byte : DWORD { ForTakers = 0, ForOthers = 1 };

// False where it is another's. Without LOCKFILE_FAIL_IMMEDIATELY it waits.
bool lock(const Handle& file, Byte byte, DWORD flags) {
    OVERLAPPED place{};
    place.Offset = byte;
    place.OffsetHigh = 0x40000000;
    if (LockFileEx(file.get(), flags, 0, 1, 0, &place) != 0) {
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
    if (!lock(file, ForTakers, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY)) {
        return nullptr;
    }
    static_cast<void>(lock(file, ForOthers, LOCKFILE_EXCLUSIVE_LOCK));
    auto held = std::make_unique<Win32HeldLock>(std::move(file));
    held->write(holder);
    return held;
}

bool Win32ProcessLocks::isHeld(std::string_view path) const {
    try {
        const Handle file(CreateFileW(toWidePath(possible(path)).c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                      nullptr));
        return file.isOpen() && !lock(file, ForOthers, LOCKFILE_FAIL_IMMEDIATELY);
    } catch (const RunTimeError&) {
        return false;
    }
}

std::string Win32ProcessLocks::holderOf(std::string_view path) const {
    try {
        return contentOf(*openWin32File(possible(path)), longestHolder);
    } catch (const RunTimeError&) {
        return {};
    }
}

} // namespace tarnwick
