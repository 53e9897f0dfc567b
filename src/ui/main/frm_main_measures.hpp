#pragma once

#include "ui/forms/measures.hpp"

namespace tarnwick {

// The main window's size never changes.
inline constexpr Size mainWindow{.width = 12735, .height = 8460};

} // namespace tarnwick
