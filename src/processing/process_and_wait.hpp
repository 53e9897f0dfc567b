#pragma once

#include "platform/clock.hpp"
#include "platform/command_interpreter.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "processing/pause.hpp"

#include <memory>
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

// The two files of a run in the temporary folder. They are there only while it goes on; only a tool
// that was left to itself may leave them longer.
struct TemporaryFiles {
    explicit TemporaryFiles(std::string_view sTempFolder);

    std::string sTempFolder; // ends in "\"
    std::string batch;       // runs one tool
    std::string marker;      // its batch writes it last: the tool has ended
};

// The batch of a run that was stopped while its tool was at work: it goes on by itself, and its
// interpreter goes on reading the file. Null where there is none.
using LeftBatch = std::unique_ptr<StartedBatch>;

// Returns when the batch that an earlier run has left has ended, and forgets it: a batch written
// earlier would be read by that interpreter from the middle on. Window events run meanwhile. False
// where a stop is asked for before that; the batch is then still left.
[[nodiscard]] bool waitForLeftBatch(const RunServices& services, LeftBatch& left,
                                    const StopRequest& stop);

enum class Waited {
    Done,    // the tool has ended
    Stopped, // before that, a stop was asked for; the tool goes on by itself
    Failed,  // the batch could not be written or started, or has not run to its end; the user has
             // been told
};

// Writes the temporary batch around the statement, which it runs in the input folder, starts it
// hidden, and returns when its marker is there or a stop is asked for. Window events run meanwhile.
// There is no time-out: a tool that never ends is waited for until then. The marker says nothing
// about how the tool ended. A batch that ends without a marker did not run, or not to its end: that
// is reported.
// A batch that still runs when a stop is asked for is handed to `left`.
// Another window of the program uses the same marker. So a marker counts only once our own
// interpreter has ended, too.
[[nodiscard]] Waited ProcessAndWait(const RunServices& services, const TemporaryFiles& temporary,
                                    std::string_view sInputFolder, std::string_view sStatement,
                                    const StopRequest& stop, LeftBatch& left);

// The path as it stands behind ">" in a batch file: in the short form of its folder where it has
// characters that the interpreter would take for something else, and in quotation marks only where
// there is no such form.
[[nodiscard]] std::string redirectionTarget(const Files& files, const TemporaryFiles& temporary);

} // namespace tarnwick
