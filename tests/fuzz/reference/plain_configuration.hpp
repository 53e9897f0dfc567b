#pragma once

#include "postprocess/configuration_file.hpp"

#include <string_view>

namespace tarnwick::reference {

// What a configuration file of that text names.
[[nodiscard]] ConfigurationEntries configurationEntries(std::string_view text);

} // namespace tarnwick::reference
