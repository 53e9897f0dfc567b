#pragma once

#include <windows.h>

#include <objbase.h>

namespace tarnwick {

// Keeps this thread's component services for as long as it lives.
class ComUser {
  public:
    ComUser() noexcept : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ComUser(const ComUser&) = delete;
    ComUser& operator=(const ComUser&) = delete;
    ~ComUser() {
        if (entered_) {
            CoUninitialize();
        }
    }

  private:
    bool entered_;
};

// Holds one reference to a component.
template <typename Interface>
class ComPointer {
  public:
    ComPointer() noexcept = default;
    // Takes over the reference.
    explicit ComPointer(Interface* owned) noexcept : pointer_(owned) {}
    ComPointer(const ComPointer&) = delete;
    ComPointer& operator=(const ComPointer&) = delete;
    ~ComPointer() {
        if (pointer_ != nullptr) {
            pointer_->Release();
        }
    }

    // For a function that gives a reference; once.
    [[nodiscard]] void** receive() noexcept { return reinterpret_cast<void**>(&pointer_); }
    [[nodiscard]] Interface* get() const noexcept { return pointer_; }
    Interface* operator->() const noexcept { return pointer_; }

  private:
    Interface* pointer_ = nullptr;
};

} // namespace tarnwick
