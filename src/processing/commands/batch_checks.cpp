#include "processing/commands/batch_checks.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "definition/resolved_paths.hpp"

#include <algorithm>
#include <span>

namespace tarnwick {
namespace {

std::string badFolderText(const OutputDefinition& output) {
    if (trim(output.sOutputFolder).empty()) {
        return "Please specify a folder for the output " + quoted(output.sFileType) + " file.";
    }
    return "The " + quoted(output.sOutputFolder) + " folder does not exist." +
           std::string(lineEnd) + "Please specify a valid folder for the output " +
           quoted(output.sFileType) + " file.";
}

void addFolderFaults(const BatchDefinition& definition, const Files& files, Tool tool,
                     std::span<const OutputDefinition> outputs, std::vector<BatchFault>& faults) {
    std::size_t row = 0;
    for (const OutputDefinition& output : outputs) {
        ++row;
        if (output.bBuild && !FolderExists(files, resolvedFolder(definition.sInputFolder, files,
                                                                 output.sOutputFolder))) {
            faults.push_back({BatchFault::Kind::OutputFolder, badFolderText(output), tool, row});
        }
    }
}

} // namespace

std::optional<BatchFault> toolFault(const BatchDefinition& definition, const Files& files,
                                    Tool tool) {
    const std::string& executable =
        tool == Tool::CNS ? definition.sCNSExecutable : definition.sMPExecutable;
    if (FileExists(files, resolvedFile(definition.sAppFolder, executable))) {
        return std::nullopt;
    }
    return BatchFault{BatchFault::Kind::Tool,
                      "The " + std::string(nameOf(tool)) + " executable file " +
                          quoted(executable) + " does not exist.",
                      tool};
}

std::optional<BatchFault> configurationFault(const BatchDefinition& definition,
                                             const Files& files) {
    if (definition.bUseConfigFile != checked ||
        FileExists(files, resolvedFile(definition.sAppFolder, definition.sConfigFile))) {
        return std::nullopt;
    }
    return BatchFault{BatchFault::Kind::ConfigurationFile, "The configuration file " +
                                                               quoted(definition.sConfigFile) +
                                                               " does not exist."};
}

std::vector<BatchFault> outputFaults(const BatchDefinition& definition, const Files& files) {
    std::vector<BatchFault> faults;
    if (definition.iProcessCNS == checked) {
        addFolderFaults(definition, files, Tool::CNS, definition.CNSOutputs, faults);
    }
    if (definition.iProcessMP == checked) {
        addFolderFaults(definition, files, Tool::MP, definition.MPOutputs, faults);
        if (std::ranges::none_of(definition.MPOutputs, &OutputDefinition::bBuild)) {
            faults.push_back(
                {BatchFault::Kind::NoProduct, "Under MP, please define the output definition."});
        }
    }
    return faults;
}

} // namespace tarnwick
