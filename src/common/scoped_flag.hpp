#pragma once

#include <utility>

namespace tarnwick {

// Sets a flag for as long as it lives; then the flag is as it was.
class ScopedFlag {
  public:
    explicit ScopedFlag(bool& flag) noexcept : flag_(flag), before_(std::exchange(flag, true)) {}
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;
    ~ScopedFlag() { flag_ = before_; }

  private:
    bool& flag_;
    bool before_;
};

} // namespace tarnwick
