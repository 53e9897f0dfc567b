#include "ui/forms/status_bar.hpp"

namespace tarnwick {

StatusBar::StatusBar(Form& form, std::string_view name, int panels)
    : Control(form, name), panels_(static_cast<std::size_t>(panels)) {}

int StatusBar::panelLeft(int panel) const {
    int left = 0;
    for (int before = 1; before < panel; ++before) {
        left += panelWidth(before);
    }
    return left;
}

} // namespace tarnwick
