#pragma once

#include "common/known_folders.hpp"
#include "definition/batch_definition.hpp"
#include "processing/commands/tool_command.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

enum class Tool { CNS, MP };

// "CNS" or "MP".
[[nodiscard]] std::string_view nameOf(Tool tool) noexcept;

// One run of a tool over the file `sFile` in the folder `sFolder`.
struct ToolStep {
    Tool tool = Tool::MP;
    std::string sFolder;
    std::string sFile;

    bool operator==(const ToolStep&) const = default;
};

// The name, without folder, of the file that CNS makes of `record`.
[[nodiscard]] std::string cnsOutputName(const BatchDefinition& definition, std::string_view record);

// The runs of the checked tools for one record, in their order: CNS first, of which the output is
// then what MP reads. CNS writes it into the input folder where the configuration file names the
// outputs.
[[nodiscard]] std::vector<ToolStep> toolSteps(const BatchDefinition& definition,
                                              std::string_view record);

// Whether the links in a record's pages are made relative.
[[nodiscard]] bool rewritesLinks(const BatchDefinition& definition) noexcept;

// Whether that follows the run of `tool`: it is done when the pages are there.
[[nodiscard]] inline bool rewritesLinksAfter(const BatchDefinition& definition,
                                             Tool tool) noexcept {
    return tool == Tool::MP && rewritesLinks(definition);
}

// Adds the words of the step to `command`, which is empty; `definition` has resolved paths.
// Products whose folder does not exist are left out without a word; callers check the folders
// first. Where it raises (only for want of memory), the command is as far as it was built.
void buildCommand(ToolCommand& command, const BatchDefinition& definition, KnownFolders& folders,
                  const ToolStep& step);

} // namespace tarnwick
