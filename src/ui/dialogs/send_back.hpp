#pragma once

#include "platform/desktop.hpp"
#include "ui/forms/text_box.hpp"

#include <string_view>

namespace tarnwick {

// Refuses what stands in the field: warns, and gives the field the focus with its whole text
// selected.
void sendBack(Desktop& desktop, TextBox& field, std::string_view message,
              std::string_view title = "Warning");

} // namespace tarnwick
