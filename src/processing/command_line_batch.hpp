#pragma once

#include "definition/batch_definition.hpp"
#include "platform/command_interpreter.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"

#include <optional>
#include <span>
#include <string>

namespace tarnwick {

// The files of one unattended run, all in the temporary folder.
struct CommandLineBatch {
    std::string commandBatch;     // runs the tools, then deletes itself
    std::string deleteBatch;      // deletes the file it is given; shared by all runs, and stays
    std::string notificationText; // shown when the batch is done, when that is wished
};

struct CommandLineBatchServices {
    Files& files;
    Desktop& desktop;
    const CommandInterpreter& interpreter;
};

// Writes the delete batch and finds names that no earlier run still uses. Nothing when all 1000 are
// taken; the user has been told. Raises what writing a file raises.
[[nodiscard]] std::optional<CommandLineBatch>
nameCommandLineBatch(const BatchDefinition& definition, Files& files, Desktop& desktop);

// Writes the command batch over the records, and the notification text when `notify`.
// Raises what writing a file raises; neither file is then left.
void writeCommandLineBatch(const CommandLineBatch& batch, bool notify,
                           const BatchDefinition& definition, std::span<const std::string> records,
                           const CommandLineBatchServices& services);

// Deletes what writeCommandLineBatch wrote, if that can be done.
void removeCommandLineBatch(const CommandLineBatch& batch, Files& files);

} // namespace tarnwick
