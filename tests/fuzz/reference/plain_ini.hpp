#pragma once

#include "definition/batch_definition.hpp"
#include "platform/files.hpp"

#include <string_view>

namespace tarnwick::reference {

// What reading an INI file of that text makes of the definition; nothing is changed, and the answer
// is false, where the text holds something but nothing that is known.
bool readDefinition(BatchDefinition& definition, const Files& files, std::string_view text);

} // namespace tarnwick::reference
