#pragma once

#include "definition/batch_definition.hpp"
#include "definition/ini_file.hpp"

#include <span>
#include <string>
#include <vector>

namespace tarnwick {

// The window shows what has become of a definition whose folders and files are not there; a run
// without a window has to say it.

// A sentence for each passed-over entry that changes what is made of the records; none for a
// product of a tool that does not run.
[[nodiscard]] std::vector<std::string> remarksOn(std::span<const PassedOverEntry> passedOver,
                                                 const BatchDefinition& definition);

// The value of the entry of that key, where it was passed over; else an empty text.
[[nodiscard]] std::string valuePassedOver(std::span<const PassedOverEntry> passedOver,
                                          std::string_view key);

// The drives, as "T:", of the tools and of what was passed over, each once.
[[nodiscard]] std::vector<std::string> drivesNamed(const BatchDefinition& definition,
                                                   std::span<const PassedOverEntry> passedOver);

} // namespace tarnwick
