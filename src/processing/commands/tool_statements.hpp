#pragma once

#include "definition/batch_definition.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// The tool option of an output type, without regard to case; any other text is its own option.
// "leftovers" and "Error" share a letter: they belong to different tools.
[[nodiscard]] std::string sGetOptFromFileType(std::string_view sFileType);

// The code of the definition's language; empty is English, an unknown language is its own code.
[[nodiscard]] std::string sGetLanguage(const BatchDefinition& definition);

} // namespace tarnwick
