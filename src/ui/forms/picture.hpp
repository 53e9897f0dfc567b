#pragma once

#include "ui/forms/control.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// A picture from the program's resources, as large as fits; without one it is an empty frame, for
// another picture to lie in.
class Picture final : public Control {
  public:
    Picture(Form& form, std::string_view name, std::string_view image = {})
        : Control(form, name), image_(image) {}

    // The name of the icon resource; may be empty.
    [[nodiscard]] const std::string& image() const noexcept { return image_; }
    [[nodiscard]] bool isFocusable() const noexcept override { return false; }

  private:
    std::string image_;
};

} // namespace tarnwick
