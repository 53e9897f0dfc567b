#pragma once

#include "definition/batch_definition.hpp"
#include "platform/clock.hpp"
#include "platform/command_interpreter.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"

#include <functional>
#include <string_view>

namespace tarnwick {

struct UnattendedServices {
    Files& files;
    Desktop& desktop;
    CommandInterpreter& interpreter;
    PendingEvents& events;
    std::function<void()> showHelp;    // shows the command-line help, returns when it is closed
    std::function<void()> showOptions; // lets the user correct the tool locations in `definition`
};

enum class UnattendedResult {
    BatchStarted,
    NothingStarted, // the user has been told why, or asked for help
};

// Runs a stored definition unattended: reads the INI file that the command line names into
// `definition`, checks it, selects all records, writes one batch file that runs the tools over them
// and then deletes itself, and starts it hidden. Does not wait for it, writes no log and converts
// no links.
// Whatever happens, the program ends afterwards: the caller returns from its main function.
UnattendedResult RunCommandLine(BatchDefinition& definition, const UnattendedServices& services,
                                std::string_view sTarnwickCommandLine);

} // namespace tarnwick
