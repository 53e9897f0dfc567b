#include "processing/interactive_run.hpp"

#include "common/left_out_report.hpp"
#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "definition/resolved_paths.hpp"
#include "postprocess/relative_links.hpp"
#include "processing/build_statements.hpp"
#include "processing/passing_lock.hpp"

#include <utility>

namespace tarnwick {
namespace {

template <typename Body>
void trapRun(Desktop& desktop, Body&& body) {
    trap(desktop, "frmMain", "Private Sub cmdOK_Click()", static_cast<Body&&>(body));
}

} // namespace

void InteractiveRun::execute() {
    trapRun(services_.desktop, [this] {
        if (window_.isReadyToRun()) {
            prepare();
            if (waitForLastRun()) {
                openLog();
                processAll();
            }
        }
    });
    cleanUp();
    // Not before the run: nobody may be there to answer.
    trapRun(services_.desktop,
            [this] { tellRefused(services_.desktop, refused_.records, refused_.products); });
}

void InteractiveRun::close() {
    stop_.close();
    trapRun(services_.desktop, [this] { closeLog(); });
    removeTemporaryFiles();
}

void InteractiveRun::prepare() {
    window_.showStatus("");
    window_.commitEdits();
    window_.showProgress(0);
    window_.showProgressBar(true);
    window_.offerCancel(true);
    window_.showBusy(true);
    job_ = window_.job();
    job_.definition = withResolvedPaths(std::move(job_.definition), services_.files);
    refused_ = refuseUnsafe(job_.definition, job_.records);
    letEventsRun();
}

bool InteractiveRun::waitForLastRun() {
    if (left_ == nullptr) {
        return true;
    }
    window_.showStatus("Waiting for the tool of the cancelled run to end...");
    return waitForLeftBatch(services_, left_, stop_);
}

void InteractiveRun::openLog() {
    if (!job_.definition.bCommandLineLogging || stop_.closed) {
        return;
    }
    if (const auto path = logFilePath(job_.definition, services_.files); path) {
        requireNoRecord(*path);
        log_.emplace(services_.files, *path);
    } else {
        window_.switchLoggingOff();
    }
}

// The log replaces what is there.
void InteractiveRun::requireNoRecord(const std::string& path) const {
    for (const std::string& record : job_.records) {
        if (equalIgnoringCase(path, joinPath(job_.definition.sInputFolder, record))) {
            ErrorRecord error = RunTimeError(ErrorNumber::FileAlreadyExists).record();
            error.description += ": the command log would replace the record " + quoted(path);
            throw RunTimeError(std::move(error));
        }
    }
}

// On purpose, a run that is cancelled leaves the status of the record that it was at; "Stopped!" is
// shown only where there was no record to be at.
void InteractiveRun::processAll() {
    const auto count = static_cast<double>(job_.records.size());
    double done = 0;
    for (const std::string& record : job_.records) {
        if (stop_.cancelled || !process(record)) {
            return;
        }
        window_.showProgress(++done / count * 100);
        letEventsRun();
        if (stop_.cancelled) {
            return;
        }
    }
    window_.showStatus(stop_.cancelled ? "Stopped!" : "Done!");
}

bool InteractiveRun::process(const std::string& record) {
    window_.showStatus("Processing " + record + "...");
    const BatchDefinition& definition = job_.definition;
    for (const ToolStep& step : toolSteps(definition, record)) {
        if (!runTool(step)) {
            return false;
        }
        if (rewritesLinksAfter(definition, step.tool)) {
            // A page that cannot be rewritten is reported there, and the run goes on.
            FixRelativePaths(definition, services_.files, services_.desktop, step.sFolder,
                             step.sFile);
        }
    }
    return true;
}

// A batch that could not be written, started or run ends the run: the next one would meet the same
// folder and the same interpreter, and a report for each of a thousand tools helps nobody.
bool InteractiveRun::runTool(const ToolStep& step) {
    if (!clearBatch()) {
        return false;
    }
    // Asked anew for every tool: the run takes long, and folders come and go.
    KnownFolders folders(services_.files);
    const std::string statement = buildStatement(services_.desktop, job_.definition, folders, step);
    const auto showTool = [&] {
        window_.showStatus(std::string(nameOf(step.tool)) + " - Processing " + step.sFile + "...");
    };
    // On purpose not alike: CNS is shown when its line stands in the log, MP before.
    if (step.tool == Tool::MP) {
        showTool();
    }
    log(statement);
    if (step.tool == Tool::CNS) {
        showTool();
    }
    return !stop_.cancelled &&
           ProcessAndWait(services_, temporary_, job_.definition.sInputFolder, statement, stop_,
                          left_) == Waited::Done &&
           !stop_.cancelled;
}

bool InteractiveRun::clearBatch() {
    const auto clear = [this] {
        if (FileExists(services_.files, temporary_.batch)) {
            services_.files.remove(temporary_.batch);
        }
    };
    if (!outlastPassingLock(services_.clock, services_.events, stop_, clear)) {
        return false;
    }
    letEventsRun();
    return true;
}

void InteractiveRun::log(std::string_view statement) {
    if (!log_) {
        return;
    }
    try {
        log_->write(statement);
    } catch (...) {
        log_.reset(); // it keeps what it could not write; closing it would raise once more
        throw;
    }
}

// On every way out. What fails in one part of it keeps no other from being done.
void InteractiveRun::cleanUp() {
    trapRun(services_.desktop, [this] {
        window_.showBusy(false);
        letEventsRun();
    });
    trapRun(services_.desktop, [this] { closeLog(); });
    removeTemporaryFiles();
    trapRun(services_.desktop, [this] {
        letEventsRun();
        window_.offerCancel(false);
        window_.showProgressBar(false);
        window_.showProgress(0);
    });
}

void InteractiveRun::closeLog() {
    if (auto log = std::exchange(log_, std::nullopt); log) {
        log->close();
    }
}

// A tool that still runs may keep its batch; the next run clears that away.
void InteractiveRun::removeTemporaryFiles() {
    removeQuietly(services_.files, temporary_.marker);
    removeQuietly(services_.files, temporary_.batch);
}

} // namespace tarnwick
