#include "reference/plain_tool_lines.hpp"

#include "platform/case_folding.hpp"
#include "platform/windows_path.hpp"
#include "reference/plain_text.hpp"

#include <cstddef>
#include <map>
#include <span>

namespace tarnwick::reference {
namespace {

std::string inMarks(const std::string& text) {
    return '"' + text + '"';
}

std::string ended(const std::string& folder) {
    return folder.ends_with('\\') ? folder : folder + '\\';
}

std::string optionOf(const std::string& type) {
    static const std::map<std::string, std::string, std::less<>> options{
        {"CONFIG", "-c"},    {"ERROR", "-e"},    {"TEXT", "-t"}, {"HTML", "-h"},
        {"FAQ", "-f"},       {"SGML", "-s"},     {"XML", "-x"},  {"DIF", "-d"},
        {"INFO_FILE", "-i"}, {"LEFTOVERS", "-e"}};
    const auto found = options.find(upperCase(type));
    return found == options.end() ? type : found->second;
}

std::string languageCode(const std::string& language) {
    static const std::map<std::string, std::string, std::less<>> codes{
        {"", "en"},        {"ENGLISH", "en"},    {"SPANISH", "es"},
        {"CATALAN", "ca"}, {"INDONESIAN", "id"}, {"FRENCH", "fr"}};
    const auto found = codes.find(upperCase(language));
    return found == codes.end() ? language : found->second;
}

std::string rows(std::span<const OutputDefinition> outputs, const Files& files,
                 const std::string& file, bool forCNS) {
    std::string line;
    for (const OutputDefinition& row : outputs) {
        if (!row.bBuild || trimmed(row.sOutputFolder).empty() ||
            !files.canListFolder(ended(row.sOutputFolder))) {
            continue;
        }
        const std::string option = optionOf(row.sFileType);
        line += forCNS && upperCase(option) == "-I" ? " -v " : " ";
        line +=
            option + ' ' + inMarks(ended(row.sOutputFolder) + GetBaseName(file) + row.sExtension);
    }
    return line;
}

std::string beginning(const std::string& tool, const BatchDefinition& definition) {
    std::string line = "call " + inMarks(tool);
    if (definition.bUseConfigFile == 1) {
        line += " -c " + inMarks(definition.sConfigFile);
    }
    return line + " -l " + languageCode(definition.sLanguage);
}

std::string input(const BatchDefinition& definition, const std::string& folder,
                  const std::string& file) {
    return ' ' + inMarks(definition.bCfgNamesOutput ? file : ended(trimmed(folder)) + file);
}

std::string cnsOutput(const BatchDefinition& definition, const std::string& file) {
    const std::string base = GetBaseName(file);
    if (definition.bCfgNamesOutput) {
        const auto dot = file.rfind('.');
        return dot == std::string::npos ? base : base + file.substr(dot);
    }
    return trimmed(definition.sCNSOutputExtension).empty() ? base
                                                           : base + definition.sCNSOutputExtension;
}

} // namespace

std::string mpLine(const BatchDefinition& definition, const Files& files, const std::string& folder,
                   const std::string& file) {
    std::string line = beginning(definition.sMPExecutable, definition);
    if (!definition.bCfgNamesOutput) {
        line += rows(definition.MPOutputs, files, file, false);
    }
    if (definition.iFixDoc == 1) {
        line += " -fixdoc";
    }
    return line + input(definition, folder, file);
}

std::string cnsLine(const BatchDefinition& definition, const Files& files,
                    const std::string& folder, const std::string& file, std::string& output) {
    std::string line = beginning(definition.sCNSExecutable, definition);
    if (definition.bUseAliases == 1) {
        line += " -a " + inMarks(definition.sAliasesFile);
    }
    if (!definition.bCfgNamesOutput) {
        line += rows(definition.CNSOutputs, files, file, true);
    }
    output = cnsOutput(definition, file);
    const std::string where =
        trimmed(definition.bCfgNamesOutput ? definition.sInputFolder : definition.sCNSOutputFolder);
    return line + " -o " + inMarks(ended(where) + output) + input(definition, folder, file);
}

std::vector<std::string> argumentsOf(std::string_view commandLine) {
    std::vector<std::string> arguments;
    std::string argument;
    std::size_t backslashes = 0;
    bool begun = false;
    bool inQuotes = false;
    const auto giveBackslashes = [&](std::size_t count) {
        argument.append(count, '\\');
        backslashes = 0;
    };
    for (const char character : commandLine) {
        if (character == '\\') {
            ++backslashes;
            begun = true;
            continue;
        }
        if (character == '"') {
            const bool escaped = backslashes % 2 == 1;
            giveBackslashes(backslashes / 2);
            if (escaped) {
                argument += '"';
            } else {
                inQuotes = !inQuotes;
            }
            begun = true;
            continue;
        }
        giveBackslashes(backslashes);
        if (!inQuotes && (character == ' ' || character == '\t')) {
            if (begun) {
                arguments.push_back(std::move(argument));
                argument.clear();
                begun = false;
            }
            continue;
        }
        argument += character;
        begun = true;
    }
    giveBackslashes(backslashes);
    if (begun) {
        arguments.push_back(argument);
    }
    return arguments;
}

} // namespace tarnwick::reference
