#pragma once

#include "platform/files.hpp"

#include <string>

namespace tarnwick {

// Everything that is left to be read of the file, which is not large. Raises what InputFile::read
// raises.
[[nodiscard]] std::string contentOf(InputFile& file);

} // namespace tarnwick
