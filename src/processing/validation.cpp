#include "processing/validation.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"

namespace tarnwick {
namespace {

bool toolExists(const BatchDefinition& definition, Tool tool, const ValidationServices& services) {
    auto fault = toolFault(definition, services.files, tool);
    if (!fault) {
        return true;
    }
    const std::string name(nameOf(tool));
    showWarning(services.desktop, fault->text + std::string(lineEnd) + "Please specify the " +
                                      name + " executable location.");
    services.showOptions();
    fault = toolFault(definition, services.files, tool);
    if (fault) {
        showWarning(services.desktop, fault->text);
    }
    return !fault;
}

bool outputsAreUsable(const BatchDefinition& definition, const ValidationServices& services) {
    const auto faults = outputFaults(definition, services.files);
    if (faults.empty()) {
        return definition.iProcessCNS == checked || definition.iProcessMP == checked;
    }
    const BatchFault& first = faults.front();
    showWarning(services.desktop, first.text);
    if (first.kind == BatchFault::Kind::OutputFolder) {
        services.editOutputFolder(first.tool, first.row);
    }
    return false;
}

} // namespace

bool bValidateMP(const BatchDefinition& definition, const ValidationServices& services) {
    bool result = false;
    trap(services.desktop, "frmMain", "Private Function bValidateMP() As Boolean",
         [&] { result = toolExists(definition, Tool::MP, services); });
    return result;
}

bool bValidateCNS(const BatchDefinition& definition, const ValidationServices& services) {
    bool result = false;
    trap(services.desktop, "frmMain", "Private Function bValidateCNS() As Boolean",
         [&] { result = toolExists(definition, Tool::CNS, services); });
    return result;
}

bool bValidOutputFolders(const BatchDefinition& definition, const ValidationServices& services) {
    bool result = false;
    trap(services.desktop, "frmMain", "Private Function bValidOutputFolders() As Boolean",
         [&] { result = outputsAreUsable(definition, services); });
    return result;
}

std::optional<BatchFault::Kind> validateBatch(const BatchDefinition& definition,
                                              const ValidationServices& services) {
    if ((definition.iProcessMP == checked && !bValidateMP(definition, services)) ||
        (definition.iProcessCNS == checked && !bValidateCNS(definition, services))) {
        return BatchFault::Kind::Tool;
    }
    if (const auto fault = configurationFault(definition, services.files)) {
        showWarning(services.desktop, fault->text);
        return fault->kind;
    }
    if (!definition.bCfgNamesOutput && !bValidOutputFolders(definition, services)) {
        return BatchFault::Kind::OutputFolder;
    }
    return std::nullopt;
}

} // namespace tarnwick
