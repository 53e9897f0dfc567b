#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "definition/ini_file.hpp"
#include "definition/output_types.hpp"
#include "definition/resolved_paths.hpp"

#include <span>
#include <string_view>

namespace tarnwick {
namespace {

void addEntry(std::string& text, std::string_view key, std::string_view value) {
    text.append(key).append("=").append(value).append(lineEnd);
}

std::string_view flagText(bool flag) {
    return flag ? "True" : "False";
}

void addExtension(std::string& text, const OutputDefinition& output,
                  std::span<const OutputType> types) {
    for (const OutputType& type : types) {
        if (equalIgnoringCase(output.sFileType, type.name)) {
            addEntry(text, type.extensionKey, output.sExtension);
            return;
        }
    }
}

void addOutputs(std::string& text, const BatchDefinition& definition,
                std::span<const OutputDefinition> outputs, std::span<const OutputType> types,
                const Files& files) {
    for (const OutputDefinition& output : outputs) {
        if (!output.bBuild) {
            continue;
        }
        addExtension(text, output, types);
        if (FolderExists(files,
                         resolvedFolder(definition.sInputFolder, files, output.sOutputFolder))) {
            addEntry(text, "GRID_" + std::string(trim(output.sFileType)),
                     trim(output.sOutputFolder));
        }
    }
}

} // namespace

std::string iniFileText(const BatchDefinition& definition, const Files& files) {
    std::string text;
    addEntry(text, "MP EXECUTABLE", definition.sMPExecutable);
    addEntry(text, "CNS EXECUTABLE", definition.sCNSExecutable);
    addEntry(text, "Process MP", std::to_string(definition.iProcessMP));
    addEntry(text, "Process CNS", std::to_string(definition.iProcessCNS));
    addEntry(text, "Command Line Logging", flagText(definition.bCommandLineLogging));
    addEntry(text, "Command Line Log Filename", definition.sCommandLineLogFile);
    addEntry(text, "Input Folder", definition.sInputFolder);
    addEntry(text, "Input File Extension", definition.sInputExtensions);
    addEntry(text, "CNS Output Folder", definition.sCNSOutputFolder);
    addEntry(text, "CNS Output File Extension", definition.sCNSOutputExtension);
    if (definition.bUseAliases == checked) {
        addEntry(text, "Aliases File", trim(definition.sAliasesFile));
    }
    addEntry(text, "Convert HyperLink To Relative Path", flagText(definition.bConvertHyperlinks));
    addEntry(text, "Language", definition.sLanguage);
    addEntry(text, "FIX DOC", std::to_string(definition.iFixDoc));
    if (definition.bUseConfigFile == checked) {
        addEntry(text, "Configuration File", trim(definition.sConfigFile));
    }
    addOutputs(text, definition, definition.CNSOutputs, cnsOutputTypes, files);
    addOutputs(text, definition, definition.MPOutputs, mpOutputTypes, files);
    return text;
}

void writeDefinition(BatchDefinition& definition, Files& files) {
    writeInOneStep(files, definition.sINIFile, iniFileText(definition, files));
    definition.bSettingsChanged = false;
}

} // namespace tarnwick
