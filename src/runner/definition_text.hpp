#pragma once

#include "definition/batch_definition.hpp"
#include "platform/files.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// Whoever reads a definition passes over an output whose folder is not there, without a word: in
// the window its row is seen to be empty. Here nobody looks, so it is told.

// A sentence for each output of the checked tools that the text of a definition's file asks for, in
// a full path that is no folder.
[[nodiscard]] std::vector<std::string>
outputsPassedOver(std::string_view text, const BatchDefinition& definition, const Files& files);

// The drives that its values begin with, as "T:", each once.
[[nodiscard]] std::vector<std::string> drivesNamed(std::string_view text);

} // namespace tarnwick
