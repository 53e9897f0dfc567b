#pragma once

#include "ui/forms/control.hpp"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// A field to type into, with a list to pick from that drops down.
class ComboBox final : public Control {
  public:
    ComboBox(Form& form, std::string_view name, std::vector<std::string> items = {});

    [[nodiscard]] const std::vector<std::string>& items() const noexcept { return items_; }
    [[nodiscard]] const std::string& text() const noexcept { return text_; }
    // Any text; it need not be an item.
    void setText(std::string_view text) { set(text_, text, Property::Text); }

    // The user typed: the text is this now, and the view shows it already.
    void userChangedText(std::string_view text);
    // The user picked this item, with the mouse or the arrow keys.
    void userPicked(std::size_t index);

    std::function<void()> Change; // the user typed
    std::function<void()> Click;  // the user picked

  private:
    std::vector<std::string> items_;
    std::string text_;
};

} // namespace tarnwick
