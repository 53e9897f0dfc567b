#pragma once

#include <utility>

namespace tarnwick {

// Holds a flag up for as long as it lives; then the flag is as it was.
class Raised {
  public:
    explicit Raised(bool& flag) noexcept : flag_(flag), before_(std::exchange(flag, true)) {}
    Raised(const Raised&) = delete;
    Raised(Raised&&) = delete;
    Raised& operator=(const Raised&) = delete;
    Raised& operator=(Raised&&) = delete;
    ~Raised() { flag_ = before_; }

  private:
    bool& flag_;
    bool before_;
};

} // namespace tarnwick
