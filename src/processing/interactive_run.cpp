#include "processing/interactive_run.hpp"

#include "common/left_out_report.hpp"
#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "definition/resolved_paths.hpp"
#include "postprocess/relative_links.hpp"
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

// Whoever cancels finds the last record's status where it was: on purpose, "Stopped!" is said only
// where there was no record that could be stopped at.
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
    std::string cnsOutput;
    if (job_.definition.iProcessCNS == checked && !runCNS(record, cnsOutput)) {
        return false;
    }
    if (job_.definition.iProcessMP == checked) {
        if (!runMP(record, cnsOutput)) {
            return false;
        }
        fixLinks(record, cnsOutput);
    }
    return true;
}

bool InteractiveRun::runCNS(const std::string& record, std::string& cnsOutput) {
    if (!clearBatch()) {
        return false;
    }
    // Asked anew for every tool: the run takes long, and folders come and go.
    KnownFolders folders(services_.files);
    const std::string statement =
        sBuildCNSstatement(job_.definition, {.folders = folders, .desktop = services_.desktop},
                           job_.definition.sInputFolder, record, cnsOutput);
    log(statement);
    window_.showStatus("CNS - Processing " + record + "...");
    return runTool(statement);
}

bool InteractiveRun::runMP(const std::string& record, const std::string& cnsOutput) {
    if (!clearBatch()) {
        return false;
    }
    KnownFolders folders(services_.files);
    const auto [folder, file] = mpInput(job_.definition, record, cnsOutput);
    const std::string statement = sBuildMPstatement(
        job_.definition, {.folders = folders, .desktop = services_.desktop}, folder, file);
    window_.showStatus("MP - Processing " + file + "...");
    log(statement);
    return runTool(statement);
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

// A batch that could not be written, started or run ends the run: the next one would meet the same
// folder and the same interpreter, and a report for each of a thousand tools helps nobody.
bool InteractiveRun::runTool(std::string_view statement) {
    return !stop_.cancelled &&
           ProcessAndWait(services_, temporary_, job_.definition.sInputFolder, statement, stop_,
                          left_) == Waited::Done &&
           !stop_.cancelled;
}

// A page that cannot be rewritten has been reported, and the run goes on.
void InteractiveRun::fixLinks(const std::string& record, const std::string& cnsOutput) {
    const BatchDefinition& definition = job_.definition;
    if (!definition.bConvertHyperlinks || definition.bCfgNamesOutput) {
        return;
    }
    const LinkServices services{.files = services_.files, .desktop = services_.desktop};
    if (definition.iProcessCNS == checked) {
        FixRelativePaths(definition, services, definition.sCNSOutputFolder, cnsOutput);
    } else {
        FixRelativePaths(definition, services, definition.sInputFolder, record);
    }
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
