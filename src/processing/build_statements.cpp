#include "processing/build_statements.hpp"

#include "common/trap.hpp"

namespace tarnwick {
namespace {

std::string statement(Desktop& desktop, std::string_view procedure,
                      const BatchDefinition& definition, KnownFolders& folders,
                      const ToolStep& step) {
    ToolCommand command;
    trap(desktop, "frmMain", procedure, [&] { buildCommand(command, definition, folders, step); });
    return batchLine(command);
}

} // namespace

std::string sBuildCNSstatement(Desktop& desktop, const BatchDefinition& definition,
                               KnownFolders& folders, std::string_view sFolder,
                               std::string_view sFile) {
    return statement(desktop, "Private Function sBuildCNSstatement() As String", definition,
                     folders, {Tool::CNS, std::string(sFolder), std::string(sFile)});
}

std::string sBuildMPstatement(Desktop& desktop, const BatchDefinition& definition,
                              KnownFolders& folders, std::string_view sFolder,
                              std::string_view sFile) {
    return statement(desktop, "Private Function sBuildMPstatement() As String", definition, folders,
                     {Tool::MP, std::string(sFolder), std::string(sFile)});
}

std::string buildStatement(Desktop& desktop, const BatchDefinition& definition,
                           KnownFolders& folders, const ToolStep& step) {
    return step.tool == Tool::CNS
               ? sBuildCNSstatement(desktop, definition, folders, step.sFolder, step.sFile)
               : sBuildMPstatement(desktop, definition, folders, step.sFolder, step.sFile);
}

} // namespace tarnwick
