#pragma once

#include <string>

namespace tarnwick {

// A font by name and size; an empty name, or no size, is the form's own.
struct Font {
    std::string name;
    int points = 0;

    bool operator==(const Font&) const = default;
};

} // namespace tarnwick
