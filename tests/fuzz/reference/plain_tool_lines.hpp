#pragma once

#include "definition/batch_definition.hpp"
#include "platform/files.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::reference {

// The line of a batch that runs the tool over the file, put together as text.
[[nodiscard]] std::string mpLine(const BatchDefinition& definition, const Files& files,
                                 const std::string& folder, const std::string& file);
[[nodiscard]] std::string cnsLine(const BatchDefinition& definition, const Files& files,
                                  const std::string& folder, const std::string& file,
                                  std::string& output);

// The arguments that a program gets which is started by that command line, its own name first: as
// the C run-time library of Windows reads it.
[[nodiscard]] std::vector<std::string> argumentsOf(std::string_view commandLine);

} // namespace tarnwick::reference
