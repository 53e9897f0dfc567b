#pragma once

#include <windows.h>

#include <utility>

namespace tarnwick {

// Owns a kernel handle, or none.
class Handle {
  public:
    Handle() = default;
    explicit Handle(HANDLE handle) noexcept : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(other.release()) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (isOpen()) {
            CloseHandle(handle_);
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

// Owns a search through a folder, or none.
class FindHandle {
  public:
    explicit FindHandle(HANDLE handle) noexcept : handle_(handle) {}
    FindHandle(const FindHandle&) = delete;
    FindHandle& operator=(const FindHandle&) = delete;
    ~FindHandle() {
        if (isOpen()) {
            FindClose(handle_);
        }
    }

    [[nodiscard]] bool isOpen() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE get() const noexcept { return handle_; }

  private:
    HANDLE handle_;
};

} // namespace tarnwick
