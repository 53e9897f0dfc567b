#include "definition/batch_definition.hpp"

#include "definition/output_types.hpp"

#include <cstddef>
#include <span>

namespace tarnwick {
namespace {

template <std::size_t rows>
void loadDefaultRows(std::array<OutputDefinition, rows>& grid,
                     const std::array<OutputType, rows>& types) {
    for (std::size_t row = 0; row < rows; ++row) {
        const OutputType& type = types.at(row);
        grid.at(row) = {.bBuild = type.buildByDefault,
                        .sFileType = std::string(type.name),
                        .sExtension = std::string(type.defaultExtension),
                        .sOutputFolder = {}};
    }
}

void switchOff(std::span<OutputDefinition> grid) {
    for (OutputDefinition& output : grid) {
        output.bBuild = false;
    }
}

} // namespace

void switchOffAllOutputs(BatchDefinition& definition) {
    LoadDefaultGridSettings(definition);
    switchOff(definition.MPOutputs);
    switchOff(definition.CNSOutputs);
}

void forgetConfigurationEntries(ProgramSettings& settings) {
    settings.bCfgNamesInput = false;
    settings.bCfgNamesOutput = false;
}

void MyDefaultSettings(BatchDefinition& definition) {
    definition.iFixDoc = 0;
    definition.bCommandLineLogging = false;
    definition.sLanguage = "English";
    definition.bUseConfigFile = 0;
    forgetConfigurationEntries(definition);
    LoadDefaultGridSettings(definition);
}

void LoadDefaultGridSettings(BatchDefinition& definition) {
    loadDefaultRows(definition.MPOutputs, mpOutputTypes);
    loadDefaultRows(definition.CNSOutputs, cnsOutputTypes);
}

} // namespace tarnwick
