#pragma once

#include "ui/forms/view.hpp"

#include <vector>

namespace tarnwick {

// Keeps what it is told.
struct RecordingView : View {
    void changed(Property property) override { told.push_back(property); }
    std::vector<Property> told;
};

} // namespace tarnwick
