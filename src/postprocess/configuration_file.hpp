#pragma once

#include "definition/batch_definition.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"

#include <functional>
#include <string_view>

namespace tarnwick {

// Which of its own settings a configuration file of MP carries.
struct ConfigurationEntries {
    bool namesInput = false;
    bool namesOutput = false;

    bool operator==(const ConfigurationEntries&) const = default;
};

// What one line says, where a line ends at CR or CR LF: a file whose lines end in bare LFs is one
// line. On purpose, "output" as the very first of such lines is not seen, although "input" is.
[[nodiscard]] ConfigurationEntries inspectConfigurationLine(std::string_view line);

// Inspects the configuration file `sConfigFile` and sets `bCfgNamesInput` and `bCfgNamesOutput`.
// When it names the outputs, all output definitions are switched off and emptied, and with CNS
// checked so are CNS's output folder and extension: the configuration file decides then. Outputs
// that were switched off once are not switched on again by another file.
// Raises what Files::openForReading and InputFile::read raise; the flags are then as far as they
// were set.
void inspectConfigurationFile(BatchDefinition& definition, const Files& files);

// The same; `whenInspected` is called last: the place to bring a window up to date. True when all
// went well; an error, also one of `whenInspected`, is reported.
bool GetCFGValues(BatchDefinition& definition, const Files& files, Desktop& desktop,
                  const std::function<void()>& whenInspected);

} // namespace tarnwick
