#include "processing/validation.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "definition/resolved_paths.hpp"

#include <span>
#include <string>

namespace tarnwick {
namespace {

// `executable` is the definition's own field: the options dialog may change it meanwhile.
bool toolExists(std::string_view tool, const BatchDefinition& definition,
                const std::string& executable, const ValidationServices& services) {
    const auto exists = [&] {
        return FileExists(services.files, resolvedFile(definition.sAppFolder, executable));
    };
    if (exists()) {
        return true;
    }
    const auto missing = [&] {
        return "The " + std::string(tool) + " executable file " + quoted(executable) +
               " does not exist.";
    };
    showWarning(services.desktop, missing() + std::string(lineEnd) + "Please specify the " +
                                      std::string(tool) + " executable location.");
    services.showOptions();
    if (exists()) {
        return true;
    }
    showWarning(services.desktop, missing());
    return false;
}

std::string badFolderText(const OutputDefinition& output) {
    if (trim(output.sOutputFolder).empty()) {
        return "Please specify a folder for the output " + quoted(output.sFileType) + " file.";
    }
    return "The " + quoted(output.sOutputFolder) + " folder does not exist." +
           std::string(lineEnd) + "Please specify a valid folder for the output " +
           quoted(output.sFileType) + " file.";
}

// Whether every product to be built has its folder; the first that has not is shown.
bool foldersExist(const BatchDefinition& definition, OutputGrid grid,
                  std::span<const OutputDefinition> outputs, const ValidationServices& services) {
    std::size_t row = 0;
    for (const OutputDefinition& output : outputs) {
        ++row;
        if (output.bBuild &&
            !FolderExists(services.files, resolvedFolder(definition.sInputFolder, services.files,
                                                         output.sOutputFolder))) {
            showWarning(services.desktop, badFolderText(output));
            services.editOutputFolder(grid, row);
            return false;
        }
    }
    return true;
}

bool buildsAny(std::span<const OutputDefinition> outputs) {
    for (const OutputDefinition& output : outputs) {
        if (output.bBuild) {
            return true;
        }
    }
    return false;
}

bool outputsAreUsable(const BatchDefinition& definition, const ValidationServices& services) {
    // CNS needs no product beside its main output; MP without one would do nothing.
    if (definition.iProcessCNS == checked &&
        !foldersExist(definition, OutputGrid::CNS, definition.CNSOutputs, services)) {
        return false;
    }
    if (definition.iProcessMP != checked) {
        return definition.iProcessCNS == checked;
    }
    if (!foldersExist(definition, OutputGrid::MP, definition.MPOutputs, services)) {
        return false;
    }
    if (!buildsAny(definition.MPOutputs)) {
        showWarning(services.desktop, "Under MP, please define the output definition.");
        return false;
    }
    return true;
}

} // namespace

bool bValidateMP(const BatchDefinition& definition, const ValidationServices& services) {
    bool result = false;
    trap(services.desktop, "frmMain", "Private Function bValidateMP() As Boolean",
         [&] { result = toolExists("MP", definition, definition.sMPExecutable, services); });
    return result;
}

bool bValidateCNS(const BatchDefinition& definition, const ValidationServices& services) {
    bool result = false;
    trap(services.desktop, "frmMain", "Private Function bValidateCNS() As Boolean",
         [&] { result = toolExists("CNS", definition, definition.sCNSExecutable, services); });
    return result;
}

bool bValidOutputFolders(const BatchDefinition& definition, const ValidationServices& services) {
    bool result = false;
    trap(services.desktop, "frmMain", "Private Function bValidOutputFolders() As Boolean",
         [&] { result = outputsAreUsable(definition, services); });
    return result;
}

BatchFault validateBatch(const BatchDefinition& definition, const ValidationServices& services) {
    if (definition.iProcessMP == checked && !bValidateMP(definition, services)) {
        return BatchFault::Tool;
    }
    if (definition.iProcessCNS == checked && !bValidateCNS(definition, services)) {
        return BatchFault::Tool;
    }
    if (definition.bUseConfigFile == checked &&
        !FileExists(services.files, resolvedFile(definition.sAppFolder, definition.sConfigFile))) {
        showWarning(services.desktop, "The configuration file " + quoted(definition.sConfigFile) +
                                          " does not exist.");
        return BatchFault::ConfigurationFile;
    }
    if (!definition.bCfgNamesOutput && !bValidOutputFolders(definition, services)) {
        return BatchFault::OutputFolders;
    }
    return BatchFault::None;
}

} // namespace tarnwick
