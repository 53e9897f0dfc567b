#include "reference/plain_ini.hpp"

#include "definition/resolved_paths.hpp"
#include "platform/case_folding.hpp"
#include "reference/plain_text.hpp"

#include <map>
#include <string>

namespace tarnwick::reference {
namespace {

constexpr std::size_t longestLine = 65536;

struct Entry {
    std::string key; // upper-cased, without blanks around it
    std::string value;
};

std::vector<Entry> entriesOf(std::string text) {
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.erase(0, 3);
    }
    replaceAll(text, "\r\n", "\n");
    replaceAll(text, "\r", "\n");
    std::vector<Entry> entries;
    for (const std::string& line : split(text, "\n")) {
        const auto equals = line.find('=');
        if (equals != std::string::npos && line.size() <= longestLine &&
            line.find('\0') == std::string::npos) {
            entries.push_back(
                {upperCase(trimmed(line.substr(0, equals))), line.substr(equals + 1)});
        }
    }
    return entries;
}

OutputDefinition* rowOf(BatchDefinition& definition, const std::string& upperType) {
    for (OutputDefinition& row : definition.CNSOutputs) {
        if (upperCase(row.sFileType) == upperType) {
            return &row;
        }
    }
    for (OutputDefinition& row : definition.MPOutputs) {
        if (upperCase(row.sFileType) == upperType) {
            return &row;
        }
    }
    return nullptr;
}

const std::map<std::string, std::string, std::less<>>& typesByExtensionKey() {
    static const std::map<std::string, std::string, std::less<>> types{
        {"ERROR EXTENSION", "ERROR"},
        {"TEXT EXTENSION", "TEXT"},
        {"HTML EXTENSION", "HTML"},
        {"FAQ EXTENSION", "FAQ"},
        {"SGML EXTENSION", "SGML"},
        {"XML EXTENSION", "XML"},
        {"DIF EXTENSION", "DIF"},
        {"INFO EXTENSION", "INFO_FILE"},
        {"LEFTOVERS EXTENSION", "LEFTOVERS"},
    };
    return types;
}

// The path of a file that is used only where it exists.
bool takeFile(const Files& files, const BatchDefinition& definition, const std::string& name,
              int& use, std::string& field) {
    const std::string path = resolvedFile(definition.sAppFolder, name);
    use = !trimmed(path).empty() && !files.firstNormalFile(path).empty() ? 1 : 0;
    if (use == 1) {
        field = name;
    }
    return use == 1;
}

bool folderExists(const Files& files, const std::string& path) {
    return !trimmed(path).empty() && files.canListFolder(path.ends_with('\\') ? path : path + '\\');
}

// Every key is compared with the key of the entry, one after the other.
// NOLINTNEXTLINE(readability-function-cognitive-complexity): a list of independent cases
bool take(BatchDefinition& d, const Files& files, const Entry& entry) {
    const auto& [key, value] = entry;
    const std::string text = trimmed(value);
    bool known = true;
    if (key == "MP EXECUTABLE") {
        d.sMPExecutable = text;
    } else if (key == "CNS EXECUTABLE") {
        d.sCNSExecutable = text;
    } else if (key == "PROCESS MP") {
        d.iProcessMP = text == "0" ? 0 : 1;
    } else if (key == "PROCESS CNS") {
        d.iProcessCNS = text == "1" ? 1 : 0;
    } else if (key == "CONVERT HYPERLINK TO RELATIVE PATH") {
        d.bConvertHyperlinks = upperCase(text) == "TRUE";
    } else if (key == "COMMAND LINE LOGGING") {
        d.bCommandLineLogging = upperCase(text) == "TRUE";
    } else if (key == "COMMAND LINE LOG FILENAME") {
        d.sCommandLineLogFile = text;
    } else if (key == "INPUT FOLDER") {
        d.sInputFolder = folderExists(files, text) ? text : d.sInputFolder;
    } else if (key == "INPUT FILE EXTENSION") {
        d.sInputExtensions = value;
    } else if (key == "LANGUAGE") {
        d.sLanguage = value;
    } else if (key == "CNS OUTPUT FOLDER") {
        d.sCNSOutputFolder = value;
    } else if (key == "CNS OUTPUT FILE EXTENSION") {
        d.sCNSOutputExtension = value;
    } else if (key == "ALIASES FILE") {
        takeFile(files, d, text, d.bUseAliases, d.sAliasesFile);
    } else if (key == "CONFIGURATION FILE") {
        if (!takeFile(files, d, text, d.bUseConfigFile, d.sConfigFile)) {
            d.bCfgNamesInput = false;
            d.bCfgNamesOutput = false;
        }
    } else if (key == "FIX DOC") {
        d.iFixDoc = text == "1" ? 1 : 0;
    } else {
        known = false;
    }
    return known;
}

void resetRows(BatchDefinition& definition) {
    BatchDefinition fresh;
    switchOffAllOutputs(fresh);
    definition.MPOutputs = fresh.MPOutputs;
    definition.CNSOutputs = fresh.CNSOutputs;
}

} // namespace

bool readDefinition(BatchDefinition& definition, const Files& files, std::string_view text) {
    BatchDefinition read = definition;
    resetRows(read);
    bool known = false;
    std::map<std::string, std::string, std::less<>> extensions;
    for (const Entry& entry : entriesOf(std::string(text))) {
        if (const auto type = typesByExtensionKey().find(entry.key);
            type != typesByExtensionKey().end()) {
            extensions[type->second] = entry.value;
            known = true;
        } else if (entry.key.starts_with("GRID_")) {
            OutputDefinition* row = rowOf(read, entry.key.substr(5));
            const std::string folder = trimmed(entry.value);
            known = known || row != nullptr;
            if (row != nullptr &&
                folderExists(files, resolvedFolder(read.sInputFolder, files, folder))) {
                row->bBuild = true;
                row->sOutputFolder = folder;
            }
        } else {
            known = take(read, files, entry) || known;
        }
    }
    const bool empty = std::string(text).find_first_not_of(
                           " \r\n", text.starts_with("\xEF\xBB\xBF") ? 3 : 0) == std::string::npos;
    if (!known && !empty) {
        return false;
    }
    for (const auto& [type, extension] : extensions) {
        rowOf(read, type)->sExtension = extension;
    }
    definition = read;
    return true;
}

} // namespace tarnwick::reference
