#include "processing/commands/tool_steps.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "processing/commands/tool_statements.hpp"

#include <span>
#include <utility>

namespace tarnwick {
namespace {

using Kind = ToolArgument::Kind;

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

std::span<const OutputDefinition> outputsOf(const BatchDefinition& definition, Tool tool) {
    return tool == Tool::CNS ? std::span<const OutputDefinition>(definition.CNSOutputs)
                             : definition.MPOutputs;
}

void addOutputs(const BatchDefinition& definition, const ToolStep& step, KnownFolders& folders,
                ArgumentList& arguments) {
    if (definition.bCfgNamesOutput) {
        return;
    }
    const std::string baseName = GetBaseName(step.sFile);
    for (const OutputDefinition& output : outputsOf(definition, step.tool)) {
        if (!output.bBuild || !folders.exists(output.sOutputFolder)) {
            continue;
        }
        const std::string option = sGetOptFromFileType(output.sFileType);
        if (step.tool == Tool::CNS && equalIgnoringCase(option, "-i")) {
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

const std::string& cnsOutputFolder(const BatchDefinition& definition) {
    return definition.bCfgNamesOutput ? definition.sInputFolder : definition.sCNSOutputFolder;
}

void addAliases(const BatchDefinition& definition, ArgumentList& arguments) {
    if (definition.bUseAliases == checked) {
        arguments.word("-a");
        arguments.path(Kind::Settings, definition.sAliasesFile);
    }
}

void addCNSOutput(const BatchDefinition& definition, std::string_view record,
                  ArgumentList& arguments) {
    arguments.word("-o");
    arguments.path(Kind::Output,
                   joinPath(trim(cnsOutputFolder(definition)), cnsOutputName(definition, record)));
}

} // namespace

std::string_view nameOf(Tool tool) noexcept {
    return tool == Tool::CNS ? "CNS" : "MP";
}

std::string cnsOutputName(const BatchDefinition& definition, std::string_view record) {
    std::string name = GetBaseName(record);
    if (!definition.bCfgNamesOutput) {
        // Typed blanks stay, unless there is nothing else.
        return trim(definition.sCNSOutputExtension).empty() ? name
                                                            : name + definition.sCNSOutputExtension;
    }
    const auto lastDot = record.rfind('.');
    return lastDot == std::string_view::npos ? name : name.append(record.substr(lastDot));
}

std::vector<ToolStep> toolSteps(const BatchDefinition& definition, std::string_view record) {
    std::vector<ToolStep> steps;
    const bool cns = definition.iProcessCNS == checked;
    if (cns) {
        steps.push_back({Tool::CNS, definition.sInputFolder, std::string(record)});
    }
    if (definition.iProcessMP == checked) {
        steps.push_back({Tool::MP, cns ? cnsOutputFolder(definition) : definition.sInputFolder,
                         cns ? cnsOutputName(definition, record) : std::string(record)});
    }
    return steps;
}

bool rewritesLinks(const BatchDefinition& definition) noexcept {
    return definition.iProcessMP == checked && definition.bConvertHyperlinks &&
           !definition.bCfgNamesOutput;
}

void buildCommand(ToolCommand& command, const BatchDefinition& definition, KnownFolders& folders,
                  const ToolStep& step) {
    const bool cns = step.tool == Tool::CNS;
    command.tool = cns ? definition.sCNSExecutable : definition.sMPExecutable;
    ArgumentList arguments(command);
    addConfigurationAndLanguage(definition, arguments);
    if (cns) {
        addAliases(definition, arguments);
    }
    addOutputs(definition, step, folders, arguments);
    if (cns) {
        addCNSOutput(definition, step.sFile, arguments);
    } else if (definition.iFixDoc == 1) {
        arguments.word("-fixdoc");
    }
    arguments.path(Kind::Input, inputPath(definition, step.sFolder, step.sFile));
}

} // namespace tarnwick
