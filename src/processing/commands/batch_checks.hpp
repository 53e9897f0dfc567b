#pragma once

#include "definition/batch_definition.hpp"
#include "platform/files.hpp"
#include "processing/commands/tool_steps.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tarnwick {

// Something that keeps a batch from being run.
struct BatchFault {
    enum class Kind {
        Tool,              // `tool` does not exist
        ConfigurationFile, // it does not exist
        OutputFolder,      // that of the product in the row of the tool's grid does not exist
        NoProduct,         // MP is to run, and to build nothing
    };

    Kind kind = Kind::Tool;
    std::string text; // a sentence for the user
    Tool tool = Tool::MP;
    std::size_t row = 0; // counted from 1

    bool operator==(const BatchFault&) const = default;
};

// The checks that every way to run a batch begins with; each has an order of its own for them. They
// raise what Files::currentFolder raises.

[[nodiscard]] std::optional<BatchFault> toolFault(const BatchDefinition& definition,
                                                  const Files& files, Tool tool);

// Nothing also where no configuration file is used.
[[nodiscard]] std::optional<BatchFault> configurationFault(const BatchDefinition& definition,
                                                           const Files& files);

// Of the checked tools: CNS needs no product beside its main output; MP without one would do
// nothing. Not to be asked where the configuration file names the outputs.
[[nodiscard]] std::vector<BatchFault> outputFaults(const BatchDefinition& definition,
                                                   const Files& files);

} // namespace tarnwick
