#pragma once

#include "platform/desktop.hpp"
#include "platform/files.hpp"

#include <memory>

namespace tarnwick::gallery {

// As much of the platform as the dialogs ask for.
[[nodiscard]] std::unique_ptr<Files> makeFiles();
[[nodiscard]] std::unique_ptr<Desktop> makeDesktop();

} // namespace tarnwick::gallery
