#pragma once

#include "platform/files.hpp"

#include <cstddef>
#include <string>

namespace tarnwick {

// Everything that is left to be read of the file, which is not large, or its first `most` bytes.
// Raises what InputFile::read raises.
[[nodiscard]] std::string contentOf(InputFile& file, std::size_t most = std::string::npos);

} // namespace tarnwick
