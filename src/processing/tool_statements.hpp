#pragma once

#include "common/known_folders.hpp"
#include "definition/batch_definition.hpp"
#include "platform/desktop.hpp"
#include "processing/tool_command.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// What the statements of one batch need beside its definition.
struct StatementServices {
    KnownFolders& folders; // answers for the whole batch
    Desktop& desktop;      // for the error report
};

// What MP reads of one record.
struct MPInput {
    std::string sFolder;
    std::string sFile;
};

// Where CNS runs first, that is its output, which it writes into the input folder when the
// configuration file names the outputs; else the record itself.
[[nodiscard]] MPInput mpInput(const BatchDefinition& definition, std::string_view record,
                              std::string_view sCNSOutputFile);

// The tool option of an output type, without regard to case; any other text is its own option.
// "leftovers" and "Error" share a letter: they belong to different tools.
[[nodiscard]] std::string sGetOptFromFileType(std::string_view sFileType);

// The code of the definition's language; empty is English, an unknown language is its own code.
[[nodiscard]] std::string sGetLanguage(const BatchDefinition& definition);

// The command that runs the tool over the file `sFile` in the folder `sFolder`. Products whose
// folder does not exist are left out without a word; callers check the folders first. An error is
// reported, and the command is then as far as it was built.
// `sCNSOutputFile` receives the name, without folder, of the file that CNS makes: MP's input.
[[nodiscard]] ToolCommand cnsCommand(const BatchDefinition& definition,
                                     const StatementServices& services, std::string_view sFolder,
                                     std::string_view sFile, std::string& sCNSOutputFile);
[[nodiscard]] ToolCommand mpCommand(const BatchDefinition& definition,
                                    const StatementServices& services, std::string_view sFolder,
                                    std::string_view sFile);

// The same as lines of a batch file, without their ends.
[[nodiscard]] std::string sBuildCNSstatement(const BatchDefinition& definition,
                                             const StatementServices& services,
                                             std::string_view sFolder, std::string_view sFile,
                                             std::string& sCNSOutputFile);
[[nodiscard]] std::string sBuildMPstatement(const BatchDefinition& definition,
                                            const StatementServices& services,
                                            std::string_view sFolder, std::string_view sFile);

} // namespace tarnwick
