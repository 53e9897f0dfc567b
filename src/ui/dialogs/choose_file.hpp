#pragma once

#include "platform/desktop.hpp"

#include <optional>
#include <string>

namespace tarnwick {

// The file that the user chose in a common file dialog; nothing when the dialog was cancelled.
[[nodiscard]] std::optional<std::string> chooseFile(Desktop& desktop, const FileDialog& dialog);

} // namespace tarnwick
