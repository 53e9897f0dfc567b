#pragma once

#include "ui/forms/control.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// A line along the lower edge of the window, divided into panels. They are counted from 1.
class StatusBar final : public Control {
  public:
    StatusBar(Form& form, std::string_view name, int panels);

    [[nodiscard]] int panels() const noexcept { return static_cast<int>(panels_.size()); }
    [[nodiscard]] const std::string& panelText(int panel) const {
        return panels_.at(indexOf(panel)).text;
    }
    void setPanelText(int panel, std::string_view text) {
        set(panels_.at(indexOf(panel)).text, text, Property::Text);
    }
    [[nodiscard]] int panelWidth(int panel) const { return panels_.at(indexOf(panel)).width; }
    void setPanelWidth(int panel, int twips) {
        set(panels_.at(indexOf(panel)).width, twips, Property::Panels);
    }
    // From the status bar's left edge.
    [[nodiscard]] int panelLeft(int panel) const;

    [[nodiscard]] bool isFocusable() const noexcept override { return false; }

  private:
    struct Panel {
        std::string text;
        int width = 0;
    };
    static std::size_t indexOf(int panel) { return static_cast<std::size_t>(panel - 1); }

    std::vector<Panel> panels_;
};

} // namespace tarnwick
