#pragma once

#include "platform/clock.hpp"
#include "platform/command_interpreter.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "processing/pause.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// What a run needs of the system.
struct RunServices {
    Files& files;
    Desktop& desktop;
    CommandInterpreter& interpreter;
    PendingEvents& events;
    const Clock& clock;
};

// The two files of a run in the temporary folder. Both are there only while it goes on, but for
// what a tool that was left to itself makes of them.
struct TemporaryFiles {
    explicit TemporaryFiles(std::string_view sTempFolder);

    std::string sTempFolder; // ends in "\"
    std::string batch;       // runs one tool
    std::string marker;      // its batch writes it last: the tool has ended
};

enum class Waited {
    Done,    // the tool has ended
    Stopped, // before that, a stop was asked for; the tool goes on by itself
    Failed,  // the batch could not be written or started; the user has been told
};

// Writes the temporary batch around the statement, which it runs in the input folder, starts it
// hidden, and returns when its marker is there or a stop is asked for. Window events run meanwhile.
// There is no time-out: a tool that never ends is waited for until then. The marker says nothing
// about how the tool ended.
// All runs share one name of the marker: that of a batch which an earlier run has left to itself
// is not taken for this one's. A batch that ends without a marker has ended all the same.
[[nodiscard]] Waited ProcessAndWait(const RunServices& services, const TemporaryFiles& temporary,
                                    std::string_view sInputFolder, std::string_view sStatement,
                                    const StopRequest& stop);

// The path as it stands behind ">" in a batch file: in the short form of its folder where it has
// characters that the interpreter would take for something else, and in quotation marks only where
// there is no such form.
[[nodiscard]] std::string redirectionTarget(const Files& files, const TemporaryFiles& temporary);

} // namespace tarnwick
