#include "definition/resolved_paths.hpp"

#include "common/full_path.hpp"
#include "common/text.hpp"

#include <span>

namespace tarnwick {
namespace {

bool needsNoFolder(std::string_view path) {
    return trim(path).empty() || isFullPath(path);
}

} // namespace

std::string resolvedFile(std::string_view sAppFolder, std::string_view path) {
    return needsNoFolder(path) ? std::string(path) : fullPath(path, sAppFolder);
}

std::string resolvedFolder(std::string_view sInputFolder, const Files& files,
                           std::string_view folder) {
    if (needsNoFolder(folder)) {
        return std::string(folder);
    }
    return fullPath(folder, isFullPath(sInputFolder)
                                ? std::string(sInputFolder)
                                : fullPath(sInputFolder, files.currentFolder()));
}

BatchDefinition withResolvedPaths(BatchDefinition definition, const Files& files) {
    for (std::string* const file : {&definition.sMPExecutable, &definition.sCNSExecutable,
                                    &definition.sConfigFile, &definition.sAliasesFile}) {
        *file = resolvedFile(definition.sAppFolder, *file);
    }
    const auto resolve = [&](std::string& folder) {
        folder = resolvedFolder(definition.sInputFolder, files, folder);
    };
    resolve(definition.sCNSOutputFolder);
    const auto resolveAll = [&](std::span<OutputDefinition> outputs) {
        for (OutputDefinition& output : outputs) {
            resolve(output.sOutputFolder);
        }
    };
    resolveAll(definition.CNSOutputs);
    resolveAll(definition.MPOutputs);
    return definition;
}

} // namespace tarnwick
