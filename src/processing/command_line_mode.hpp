#pragma once

#include "definition/batch_definition.hpp"
#include "platform/clock.hpp"
#include "platform/command_interpreter.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "processing/record_selection.hpp"

#include <functional>
#include <string_view>

namespace tarnwick {

struct CommandLineServices {
    Files& files;
    Desktop& desktop;
    CommandInterpreter& interpreter;
    PendingEvents& events;
    std::function<void()> showHelp;    // shows the command-line help, returns when it is closed
    std::function<void()> showOptions; // lets the user correct the tool locations in `definition`
};

enum class CommandLineResult {
    BatchStarted,
    NothingStarted, // the user has been told why, or asked for help
};

// Runs a stored definition unattended: reads the INI file that the command line names into
// `definition`, checks it, selects all records, writes one batch file that runs the tools over them
// and then deletes itself, and starts it hidden. Does not wait for it, writes no log and converts
// no links. `records` is what was available and selected before, normally nothing.
// Whatever happens, the program ends afterwards: the caller returns from its main function.
CommandLineResult RunCommandLine(BatchDefinition& definition, RecordSelection& records,
                                 const CommandLineServices& services,
                                 std::string_view sTarnwickCommandLine);

} // namespace tarnwick
