#include "postprocess/configuration_file.hpp"

#include "common/line_reader.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "definition/resolved_paths.hpp"

#include <span>

namespace tarnwick {
namespace {

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

void switchOff(std::span<OutputDefinition> outputs) {
    for (OutputDefinition& output : outputs) {
        output.bBuild = false;
        output.sExtension.clear();
        output.sOutputFolder.clear();
    }
}

void leaveOutputsToConfigurationFile(BatchDefinition& definition) {
    switchOff(definition.CNSOutputs);
    switchOff(definition.MPOutputs);
    if (definition.iProcessCNS == checked) {
        definition.sCNSOutputFolder.clear();
        definition.sCNSOutputExtension.clear();
    }
}

} // namespace

ConfigurationEntries inspectConfigurationLine(std::string_view line) {
    const std::string_view text = trim(line);
    return {.namesInput = equalIgnoringCase(text, "input") || contains(text, "input\n"),
            .namesOutput = equalIgnoringCase(text, "output") || contains(text, "\noutput\n")};
}

void inspectConfigurationFile(BatchDefinition& definition, const Files& files) {
    forgetConfigurationEntries(definition);
    const auto file =
        files.openForReading(resolvedFile(definition.sAppFolder, definition.sConfigFile));
    LineReader lines(*file, LineEnds::CarriageReturn);
    while (const auto line = lines.next()) {
        const ConfigurationEntries entries = inspectConfigurationLine(*line);
        definition.bCfgNamesInput = definition.bCfgNamesInput || entries.namesInput;
        definition.bCfgNamesOutput = definition.bCfgNamesOutput || entries.namesOutput;
    }
    if (definition.bCfgNamesOutput) {
        leaveOutputsToConfigurationFile(definition);
    }
}

bool GetCFGValues(BatchDefinition& definition, const Files& files, Desktop& desktop,
                  const std::function<void()>& whenInspected) {
    bool completed = false;
    trap(desktop, "frmMain", "Private Sub GetCFGValues()", [&] {
        inspectConfigurationFile(definition, files);
        whenInspected();
        completed = true;
    });
    return completed;
}

} // namespace tarnwick
