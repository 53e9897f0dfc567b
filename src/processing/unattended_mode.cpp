#include "processing/unattended_mode.hpp"

#include "common/left_out_report.hpp"
#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "definition/ini_file.hpp"
#include "definition/resolved_paths.hpp"
#include "platform/left_out.hpp"
#include "postprocess/configuration_file.hpp"
#include "processing/build_statements.hpp"
#include "processing/command_line.hpp"
#include "processing/commands/record_names.hpp"
#include "processing/unattended_batch.hpp"
#include "processing/validation.hpp"

#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarnwick {
namespace {

class UnattendedRun {
  public:
    UnattendedRun(BatchDefinition& definition, const UnattendedServices& services)
        : definition_(definition), services_(services) {}

    void run(std::string_view text) {
        const std::optional<CommandLine> commandLine = parseCommandLine(text);
        if (!commandLine) {
            services_.showHelp();
        } else if (findINIFile(commandLine->sINIFile) && readDefinition() && isUsable() &&
                   selectRecords(*commandLine)) {
            startBatch(commandLine->bNotify);
        }
    }

    // At the latest at the end, and once.
    void tellUnlisted() {
        if (const std::exception_ptr error = std::exchange(unlistedError_, {})) {
            trap(services_.desktop, "frmMain", "Private Sub LoadFiles()",
                 [&error] { std::rethrow_exception(error); });
        }
    }

    [[nodiscard]] UnattendedResult result() const noexcept { return result_; }

  private:
    bool findINIFile(const std::string& name) {
        definition_.sINIFile = name;
        if (FileExists(services_.files, name)) {
            return true;
        }
        if (!hasBackslash(name)) {
            definition_.sINIFile = definition_.sAppFolder + name;
            if (FileExists(services_.files, definition_.sINIFile)) {
                return true;
            }
        }
        showWarning(services_.desktop,
                    "The INI file " + quoted(definition_.sINIFile) + " does not exist.");
        return false;
    }

    // An INI file or a configuration file that could not be read to its end is nothing to run by:
    // the user has been told, and half of the settings would build the wrong things.
    bool readDefinition() {
        bool configurationRead = true;
        const bool iniFileRead = ReadINIFile(definition_, services_.files, services_.desktop, [&] {
            listRecords();
            if (definition_.bUseConfigFile == checked &&
                FileExists(services_.files,
                           resolvedFile(definition_.sAppFolder, definition_.sConfigFile))) {
                configurationRead =
                    GetCFGValues(definition_, services_.files, services_.desktop, [] {});
            }
        });
        return iniFileRead && configurationRead;
    }

    bool isUsable() {
        if (definition_.iProcessMP != checked && definition_.iProcessCNS != checked) {
            showWarning(services_.desktop, "The INI file " + quoted(definition_.sINIFile) +
                                               " is not setup correctly.");
            return false;
        }
        const ValidationServices validation{.files = services_.files,
                                            .desktop = services_.desktop,
                                            .showOptions = services_.showOptions,
                                            .editOutputFolder = [](Tool, std::size_t) {}};
        return !validateBatch(definition_, validation);
    }

    bool selectRecords(const CommandLine& commandLine) {
        if (holdsShownNumber(commandLine.sInputFolder)) {
            // It is there, most likely: to run over another folder's records is not what was asked.
            showWarning(services_.desktop, "The folder " +
                                               quoted(without(commandLine.sInputFolder, '"')) +
                                               " has no name in the system's code page.");
            return false;
        }
        if (holdsShownNumber(commandLine.sInputExtensions)) {
            // What it was to find would be missing from the run without a word.
            showWarning(services_.desktop, "The file extensions " +
                                               quoted(without(commandLine.sInputExtensions, '"')) +
                                               " hold characters that the system's code page "
                                               "does not have.");
            return false;
        }
        applyOverrides(commandLine);
        if (unlisted_) {
            return false;
        }
        if (records_.empty()) {
            tellSkipped();
            showWarning(services_.desktop,
                        "No files found in folder " + quoted(definition_.sInputFolder) + ".");
            return false;
        }
        job_ = withResolvedPaths(definition_, services_.files);
        refused_ = refuseUnsafe(job_, records_);
        if (records_.empty()) {
            tellSkipped();
        }
        return !records_.empty();
    }

    void tellSkipped() const {
        tellLeftOut(services_.desktop, leftOut_, "file", definition_.sInputFolder);
        tellRefused(services_.desktop, refused_.records, refused_.products);
    }

    // A folder that does not exist is ignored without a word: the definition's own stays.
    void applyOverrides(const CommandLine& commandLine) {
        if (trim(commandLine.sInputFolder).empty() && trim(commandLine.sInputExtensions).empty()) {
            return;
        }
        const std::string folder = without(commandLine.sInputFolder, '"');
        const std::string extensions = without(commandLine.sInputExtensions, '"');
        if (FolderExists(services_.files, trim(folder))) {
            definition_.sInputFolder = trim(folder);
        }
        if (!trim(extensions).empty()) {
            definition_.sInputExtensions = trim(extensions);
        }
        listRecords();
    }

    // No error is the end of the run here: the command line may name a better folder than the
    // definition. It is reported after the start then: nobody may be there to answer.
    void listRecords() {
        if (!FolderExists(services_.files, definition_.sInputFolder)) {
            return;
        }
        Listing listing;
        try {
            listing =
                services_.files.listFiles(definition_.sInputFolder, definition_.sInputExtensions);
            unlisted_ = false;
        } catch (...) {
            unlisted_ = true;
            tellUnlisted(); // of the listing before
            unlistedError_ = std::current_exception();
        }
        leftOut_ = std::move(listing.leftOut);
        records_ = std::move(listing.names);
    }

    void startBatch(bool notify) {
        std::optional<UnattendedBatch> batch = createUnattendedBatch(definition_, services_.files);
        if (!batch) {
            services_.desktop.show(
                {.text = "Need to clean user " + quoted(definition_.sTempFolder) + " folder.",
                 .title = std::string(applicationTitle)});
            return;
        }
        // A note that nobody can see nobody can close: the batch would wait for that for ever.
        const bool noteIsSeen = notify && services_.desktop.isSeen();
        KnownFolders folders(services_.files);
        const auto lineOf = [&](const ToolStep& step) {
            return buildStatement(services_.desktop, job_, folders, step);
        };
        writeUnattendedBatch(
            *batch,
            {.definition = job_, .records = records_, .notify = noteIsSeen, .lineOf = lineOf},
            services_.files, services_.interpreter);
        try {
            services_.events.letRun();
            services_.interpreter.startHidden(batch->commandBatch);
        } catch (...) {
            removeUnattendedBatch(*batch, services_.files);
            throw;
        }
        result_ = UnattendedResult::BatchStarted;
        services_.events.letRun();
        // Not before the others are under way: nobody may be there to answer.
        tellUnlisted();
        tellSkipped();
        if (notify && !noteIsSeen) {
            showWarning(services_.desktop,
                        "The note that -n asks for is left out: nobody can see it.");
        }
    }

    BatchDefinition& definition_;
    const UnattendedServices& services_;
    BatchDefinition job_;              // what commands are made by: all its paths are full
    std::vector<std::string> records_; // of the last listing; then those that get a command
    LeftOut leftOut_;                  // by the last listing
    bool unlisted_ = false;            // the last listing failed
    std::exception_ptr unlistedError_; // of a listing, until the user is told
    Refused refused_;
    UnattendedResult result_ = UnattendedResult::NothingStarted;
};

} // namespace

UnattendedResult RunCommandLine(BatchDefinition& definition, const UnattendedServices& services,
                                std::string_view sTarnwickCommandLine) {
    UnattendedRun run(definition, services);
    trap(services.desktop, "frmMain",
         "Public Sub RunCommandLine(ByVal sTarnwickCommandLine As String)",
         [&] { run.run(sTarnwickCommandLine); });
    run.tellUnlisted();
    return run.result();
}

} // namespace tarnwick
