#include "processing/tool_statements.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"

#include <array>
#include <span>
#include <utility>

namespace tarnwick {
namespace {

using Kind = ToolArgument::Kind;
using Translation = std::pair<std::string_view, std::string_view>;

constexpr std::array<Translation, 10> options{{{"Config", "-c"},
                                               {"Error", "-e"},
                                               {"Text", "-t"},
                                               {"html", "-h"},
                                               {"faq", "-f"},
                                               {"sgml", "-s"},
                                               {"xml", "-x"},
                                               {"dif", "-d"},
                                               {"info_file", "-i"},
                                               {"leftovers", "-e"}}};

constexpr std::array<Translation, 6> languages{{{"", "en"},
                                                {"English", "en"},
                                                {"Spanish", "es"},
                                                {"Catalan", "ca"},
                                                {"Indonesian", "id"},
                                                {"French", "fr"}}};

std::string_view translate(std::span<const Translation> table, std::string_view text) {
    for (const auto& [known, translation] : table) {
        if (equalIgnoringCase(text, known)) {
            return translation;
        }
    }
    return text;
}

// Adds the arguments of one command, one call a kind.
class ArgumentList {
  public:
    explicit ArgumentList(ToolCommand& command) : arguments_(command.arguments) {
        arguments_.reserve(2 * MPOutputDefinitions().size() + 8);
    }
    void word(std::string_view text) { arguments_.push_back({Kind::Word, std::string(text)}); }
    void path(Kind kind, std::string path) { arguments_.push_back({kind, std::move(path)}); }

  private:
    std::vector<ToolArgument>& arguments_;
};

void addConfigurationAndLanguage(const BatchDefinition& definition, ArgumentList& arguments) {
    if (definition.bUseConfigFile == checked) {
        arguments.word("-c");
        arguments.path(Kind::Settings, definition.sConfigFile);
    }
    arguments.word("-l");
    arguments.word(sGetLanguage(definition));
}

enum class Tool { CNS, MP };

void addOutputs(Tool tool, std::span<const OutputDefinition> outputs, KnownFolders& folders,
                std::string_view baseName, ArgumentList& arguments) {
    for (const OutputDefinition& output : outputs) {
        if (!output.bBuild || !folders.exists(output.sOutputFolder)) {
            continue;
        }
        const std::string option = sGetOptFromFileType(output.sFileType);
        if (tool == Tool::CNS && equalIgnoringCase(option, "-i")) {
            arguments.word("-v"); // CNS writes its info file only when it is verbose
        }
        arguments.word(option);
        arguments.path(Kind::Output, joinPath(output.sOutputFolder, baseName, output.sExtension));
    }
}

std::string inputPath(const BatchDefinition& definition, std::string_view sFolder,
                      std::string_view sFile) {
    // A configuration file that names the outputs leaves it to the tool to find the bare name.
    return definition.bCfgNamesOutput ? std::string(sFile) : joinPath(trim(sFolder), sFile);
}

// The name of the file that CNS makes of `sFile`.
std::string cnsOutputName(const BatchDefinition& definition, std::string_view sFile) {
    std::string name = GetBaseName(sFile);
    if (!definition.bCfgNamesOutput) {
        // Typed blanks stay, unless there is nothing else.
        return trim(definition.sCNSOutputExtension).empty() ? name
                                                            : name + definition.sCNSOutputExtension;
    }
    const auto lastDot = sFile.rfind('.');
    return lastDot == std::string_view::npos ? name : name.append(sFile.substr(lastDot));
}

} // namespace

MPInput mpInput(const BatchDefinition& definition, std::string_view record,
                std::string_view sCNSOutputFile) {
    if (definition.iProcessCNS != checked) {
        return {.sFolder = definition.sInputFolder, .sFile = std::string(record)};
    }
    return {.sFolder =
                definition.bCfgNamesOutput ? definition.sInputFolder : definition.sCNSOutputFolder,
            .sFile = std::string(sCNSOutputFile)};
}

std::string sGetOptFromFileType(std::string_view sFileType) {
    return std::string(translate(options, sFileType));
}

std::string sGetLanguage(const BatchDefinition& definition) {
    return std::string(translate(languages, definition.sLanguage));
}

ToolCommand cnsCommand(const BatchDefinition& definition, const StatementServices& services,
                       std::string_view sFolder, std::string_view sFile,
                       std::string& sCNSOutputFile) {
    ToolCommand command;
    trap(services.desktop, "frmMain", "Private Function sBuildCNSstatement() As String", [&] {
        command.tool = definition.sCNSExecutable;
        ArgumentList arguments(command);
        addConfigurationAndLanguage(definition, arguments);
        if (definition.bUseAliases == checked) {
            arguments.word("-a");
            arguments.path(Kind::Settings, definition.sAliasesFile);
        }
        if (!definition.bCfgNamesOutput) {
            addOutputs(Tool::CNS, definition.CNSOutputs, services.folders, GetBaseName(sFile),
                       arguments);
        }
        sCNSOutputFile = cnsOutputName(definition, sFile);
        const std::string& folder =
            definition.bCfgNamesOutput ? definition.sInputFolder : definition.sCNSOutputFolder;
        arguments.word("-o");
        arguments.path(Kind::Output, joinPath(trim(folder), sCNSOutputFile));
        arguments.path(Kind::Input, inputPath(definition, sFolder, sFile));
    });
    return command;
}

ToolCommand mpCommand(const BatchDefinition& definition, const StatementServices& services,
                      std::string_view sFolder, std::string_view sFile) {
    ToolCommand command;
    trap(services.desktop, "frmMain", "Private Function sBuildMPstatement() As String", [&] {
        command.tool = definition.sMPExecutable;
        ArgumentList arguments(command);
        addConfigurationAndLanguage(definition, arguments);
        if (!definition.bCfgNamesOutput) {
            addOutputs(Tool::MP, definition.MPOutputs, services.folders, GetBaseName(sFile),
                       arguments);
        }
        if (definition.iFixDoc == 1) {
            arguments.word("-fixdoc");
        }
        arguments.path(Kind::Input, inputPath(definition, sFolder, sFile));
    });
    return command;
}

std::string sBuildCNSstatement(const BatchDefinition& definition, const StatementServices& services,
                               std::string_view sFolder, std::string_view sFile,
                               std::string& sCNSOutputFile) {
    return batchLine(cnsCommand(definition, services, sFolder, sFile, sCNSOutputFile));
}

std::string sBuildMPstatement(const BatchDefinition& definition, const StatementServices& services,
                              std::string_view sFolder, std::string_view sFile) {
    return batchLine(mpCommand(definition, services, sFolder, sFile));
}

} // namespace tarnwick
