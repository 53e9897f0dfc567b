#pragma once

#include "definition/batch_definition.hpp"
#include "platform/clock.hpp"
#include "platform/command_interpreter.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "processing/batch_writer.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

struct BatchExportServices {
    Files& files;
    Desktop& desktop;
    const CommandInterpreter& interpreter;
    const Clock& clock;
};

// Writes the batch files that the user keeps: scripts that do the work of one definition over some
// records later and without this program, but for the conversion of links.
class BatchExport {
  public:
    // What the services refer to must outlive it.
    explicit BatchExport(const BatchExportServices& services) : services_(services) {}

    // Writes the script as `path`, replacing without a question what is there, and tells the user.
    // Raises what writing a file raises; what was written by then stays.
    //
    // On purpose, a script for a definition that none of the checks before a batch looks at (no
    // tool runs, and the configuration file names the outputs) stays open as long as this object
    // lives. All of it is in the file before the user is told.
    void write(const BatchDefinition& definition, std::span<const std::string> records,
               std::string_view path);

  private:
    void writeScript(BatchWriter& script, const BatchDefinition& definition,
                     const BatchDefinition& resolved, std::span<const std::string> records) const;

    BatchExportServices services_;
    std::vector<BatchWriter> leftOpen_;
};

} // namespace tarnwick
