#pragma once

#include "ui/forms/captioned.hpp"

namespace tarnwick {

class CheckBox final : public Clickable {
  public:
    using Clickable::Clickable;

    // 0 or 1; it counts as on only when exactly 1.
    [[nodiscard]] int value() const noexcept { return value_; }
    void setValue(int value) { set(value_, value, Property::Value); }
    [[nodiscard]] bool ticked() const noexcept { return value_ == 1; }

    // Turns it over, from 1 to 0, else to 1, before Click fires.
    void userClicked() override {
        if (isUsable()) {
            setValue(ticked() ? 0 : 1);
            Clickable::userClicked();
        }
    }

  private:
    int value_ = 0;
};

} // namespace tarnwick
