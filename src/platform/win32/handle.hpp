#pragma once

#include <windows.h>

#include <utility>

namespace tarnwick {

// Owns a handle that `Close` ends, or none.
template <auto Close>
class ClosedHandle {
  public:
    ClosedHandle() = default;
    explicit ClosedHandle(HANDLE handle) noexcept : handle_(handle) {}
    ClosedHandle(ClosedHandle&& other) noexcept : handle_(other.release()) {}
    ClosedHandle& operator=(ClosedHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ClosedHandle(const ClosedHandle&) = delete;
    ClosedHandle& operator=(const ClosedHandle&) = delete;
    ~ClosedHandle() {
        if (isOpen()) {
            Close(handle_);
        }
    }

    [[nodiscard]] bool isOpen() const noexcept {
        return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE;
    }
    [[nodiscard]] HANDLE get() const noexcept { return handle_; }
    // Hands it over: the caller closes it.
    [[nodiscard]] HANDLE release() noexcept { return std::exchange(handle_, nullptr); }

  private:
    HANDLE handle_ = nullptr;
};

using Handle = ClosedHandle<CloseHandle>;   // of the kernel
using FindHandle = ClosedHandle<FindClose>; // a search through a folder

} // namespace tarnwick
