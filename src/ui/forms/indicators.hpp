#pragma once

#include "ui/forms/control.hpp"

#include <algorithm>

namespace tarnwick {

// What a form shows to be looked at only.

// How far some work has come, in per cent.
class ProgressBar final : public Control {
  public:
    using Control::Control;

    static constexpr int full = 100;

    [[nodiscard]] int value() const noexcept { return value_; }
    // From 0 to `full`; what lies beyond is cut off.
    void setValue(int value) { set(value_, std::clamp(value, 0, full), Property::Value); }

    [[nodiscard]] bool isFocusable() const noexcept override { return false; }

  private:
    int value_ = 0;
};

// A horizontal rule, as wide as its bounds, at their upper edge.
class Line final : public Control {
  public:
    using Control::Control;
    [[nodiscard]] bool isFocusable() const noexcept override { return false; }
};

} // namespace tarnwick
