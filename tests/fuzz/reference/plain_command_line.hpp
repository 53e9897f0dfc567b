#pragma once

#include "processing/command_line.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick::reference {

// As parseCommandLine.
[[nodiscard]] std::optional<CommandLine> commandLine(std::string_view text);

} // namespace tarnwick::reference
