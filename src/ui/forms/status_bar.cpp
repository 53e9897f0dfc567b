#include "ui/forms/status_bar.hpp"

#include <cstddef>

namespace tarnwick {

StatusBar::StatusBar(Form& form, std::string_view name, int panels)
    : Control(form, name), panels_(static_cast<std::size_t>(panels)) {}

const StatusBar::Panel& StatusBar::at(int panel) const {
    return panels_.at(static_cast<std::size_t>(panel - 1));
}

void StatusBar::setPanelText(int panel, std::string_view text) {
    set(panels_.at(static_cast<std::size_t>(panel - 1)).text, std::string(text), Property::Text);
}

void StatusBar::setPanelWidth(int panel, int twips) {
    set(panels_.at(static_cast<std::size_t>(panel - 1)).width, twips, Property::Panels);
}

int StatusBar::panelLeft(int panel) const {
    int left = 0;
    for (int before = 1; before < panel; ++before) {
        left += at(before).width;
    }
    return left;
}

} // namespace tarnwick
