// A definition of any texts, a field a line, and a record's name: the commands of both tools are
// what a plain second version puts together as text; and where every word can stand in a command
// line at all, a program started by that line gets the command's arguments.

#include "common/known_folders.hpp"
#include "fields.hpp"
#include "memory_files.hpp"
#include "processing/commands/tool_command.hpp"
#include "processing/commands/tool_steps.hpp"
#include "reference/plain_tool_lines.hpp"
#include "require.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

// A line of marks ("cafd" and one digit for each row) switches on what a definition can switch on.
BatchDefinition definitionOf(Fields& fields) {
    BatchDefinition definition;
    LoadDefaultGridSettings(definition);
    const std::string marks = fields.next();
    definition.bUseConfigFile = marks.contains('c') ? 1 : 0;
    definition.bUseAliases = marks.contains('a') ? 1 : 0;
    definition.iFixDoc = marks.contains('f') ? 1 : 0;
    definition.bCfgNamesOutput = marks.contains('d');
    definition.sMPExecutable = fields.next();
    definition.sCNSExecutable = fields.next();
    definition.sConfigFile = fields.next();
    definition.sAliasesFile = fields.next();
    definition.sLanguage = fields.next();
    definition.sInputFolder = fields.next();
    definition.sCNSOutputFolder = fields.next();
    definition.sCNSOutputExtension = fields.next();
    char mark = '0';
    const auto takeRow = [&](OutputDefinition& row) {
        row.bBuild = marks.contains(mark++);
        row.sOutputFolder = fields.next();
        row.sExtension = row.bBuild ? fields.next() : row.sExtension;
    };
    std::ranges::for_each(definition.MPOutputs, takeRow);
    std::ranges::for_each(definition.CNSOutputs, takeRow);
    return definition;
}

// Whether the text stays one word between quotation marks.
bool canBeQuoted(const std::string& text) {
    return !text.contains('"') && !text.ends_with('\\');
}

bool canBeBare(const std::string& text) {
    return !text.empty() && text.find_first_of(" \t\"\\") == std::string::npos;
}

bool canBeStarted(const ToolCommand& command) {
    return canBeQuoted(command.tool) &&
           std::ranges::all_of(command.arguments, [](const ToolArgument& argument) {
               return argument.kind == ToolArgument::Kind::Word ? canBeBare(argument.text)
                                                                : canBeQuoted(argument.text);
           });
}

void checkStart(const ToolCommand& command) {
    if (!canBeStarted(command)) {
        return;
    }
    std::vector<std::string> expected{command.tool};
    for (const ToolArgument& argument : command.arguments) {
        expected.push_back(argument.text);
    }
    const std::string line = batchLine(command);
    require(reference::argumentsOf(std::string_view(line).substr(line.find('"'))) == expected,
            "a program gets the arguments of its command");
}

ToolCommand commandOf(const BatchDefinition& definition, KnownFolders& folders,
                      const ToolStep& step) {
    ToolCommand command;
    buildCommand(command, definition, folders, step);
    return command;
}

void tryBytes(std::string_view bytes) {
    Fields fields(bytes);
    const BatchDefinition definition = definitionOf(fields);
    const std::string folder = fields.next();
    const std::string file = fields.next();
    const MemoryFiles files("");
    KnownFolders folders(files);

    const ToolCommand mp = commandOf(definition, folders, {Tool::MP, folder, file});
    require(batchLine(mp) == reference::mpLine(definition, files, folder, file),
            "MP's line is what the plain version puts together");
    checkStart(mp);

    std::string expectedOutput;
    const ToolCommand cns = commandOf(definition, folders, {Tool::CNS, folder, file});
    require(batchLine(cns) == reference::cnsLine(definition, files, folder, file, expectedOutput),
            "CNS's line is what the plain version puts together");
    require(cnsOutputName(definition, file) == expectedOutput,
            "and so is the name of what it makes");
    checkStart(cns);
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarnwick::tryBytes({reinterpret_cast<const char*>(data), size});
    return 0;
}
