#pragma once

#include "definition/batch_definition.hpp"
#include "platform/command_interpreter.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"

#include <memory>
#include <optional>
#include <span>
#include <string>

namespace tarnwick {

// The files of one unattended run, all in the temporary folder.
struct CommandLineBatch {
    std::string commandBatch;         // runs the tools, then deletes itself
    std::string deleteBatch;          // deletes the file it is given; shared by all runs, and stays
    std::string notificationText;     // shown when the batch is done, when that is wished
    std::unique_ptr<OutputFile> file; // the command batch, new and still empty
};

struct CommandLineBatchServices {
    Files& files;
    Desktop& desktop;
    const CommandInterpreter& interpreter;
};

// Sees to the delete batch and creates a command batch under a name that no other run uses. Nothing
// when all 1000 names are taken; the user has been told. Raises what writing a file raises.
[[nodiscard]] std::optional<CommandLineBatch>
createCommandLineBatch(const BatchDefinition& definition, Files& files, Desktop& desktop);

// Writes and closes the command batch over the records, by a definition of resolved paths, and
// writes the notification text when `notify`. Raises what writing a file raises; neither file is
// then left.
void writeCommandLineBatch(CommandLineBatch& batch, bool notify, const BatchDefinition& definition,
                           std::span<const std::string> records,
                           const CommandLineBatchServices& services);

// Deletes the command batch and the notification text, if that can be done.
void removeCommandLineBatch(const CommandLineBatch& batch, Files& files);

} // namespace tarnwick
