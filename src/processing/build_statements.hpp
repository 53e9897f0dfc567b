#pragma once

#include "platform/desktop.hpp"
#include "processing/commands/tool_steps.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// The tools' lines of a batch file, without their ends, for the file `sFile` in the folder
// `sFolder`; `folders` answers for a whole batch. An error is reported, and the line is then as far
// as it was built. See commands/tool_steps.hpp.
[[nodiscard]] std::string sBuildCNSstatement(Desktop& desktop, const BatchDefinition& definition,
                                             KnownFolders& folders, std::string_view sFolder,
                                             std::string_view sFile);
[[nodiscard]] std::string sBuildMPstatement(Desktop& desktop, const BatchDefinition& definition,
                                            KnownFolders& folders, std::string_view sFolder,
                                            std::string_view sFile);

// The one of the step's tool.
[[nodiscard]] std::string buildStatement(Desktop& desktop, const BatchDefinition& definition,
                                         KnownFolders& folders, const ToolStep& step);

} // namespace tarnwick
