#pragma once

#include "definition/batch_definition.hpp"
#include "platform/command_interpreter.hpp"
#include "platform/files.hpp"
#include "processing/commands/tool_steps.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace tarnwick {

// The files of one unattended run, all in the temporary folder.
struct UnattendedBatch {
    std::string commandBatch;         // runs the tools, then deletes itself
    std::string deleteBatch;          // deletes the file it is given; shared by all runs, and stays
    std::string notificationText;     // shown when the batch is done, when that is wished
    std::unique_ptr<OutputFile> file; // the command batch, new and still empty
};

// What is done in one unattended run.
struct UnattendedWork {
    const BatchDefinition& definition; // of resolved paths
    std::span<const std::string> records;
    bool notify = false;
    std::function<std::string(const ToolStep& step)> lineOf; // a tool's line
};

// Sees to the delete batch and creates a command batch under a name that no other run uses. Nothing
// when all 1000 names are taken. Raises what writing a file raises.
[[nodiscard]] std::optional<UnattendedBatch>
createUnattendedBatch(const BatchDefinition& definition, Files& files);

// Writes and closes the command batch, and writes the notification text when one is wished. Raises
// what writing a file raises; neither file is then left.
void writeUnattendedBatch(UnattendedBatch& batch, const UnattendedWork& work, Files& files,
                          const CommandInterpreter& interpreter);

// Deletes the command batch and the notification text, if that can be done.
void removeUnattendedBatch(const UnattendedBatch& batch, Files& files);

} // namespace tarnwick
