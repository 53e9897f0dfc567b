#include "processing/command_line_mode.hpp"

#include "common/left_out_report.hpp"
#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "definition/ini_file.hpp"
#include "definition/resolved_paths.hpp"
#include "platform/left_out.hpp"
#include "postprocess/configuration_file.hpp"
#include "processing/command_line.hpp"
#include "processing/command_line_batch.hpp"
#include "processing/record_names.hpp"
#include "processing/validation.hpp"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarnwick {
namespace {

class CommandLineRun {
  public:
    CommandLineRun(BatchDefinition& definition, RecordSelection& records,
                   const CommandLineServices& services)
        : definition_(definition), records_(records), services_(services) {}

    void run(std::string_view text) {
        const std::optional<CommandLine> commandLine = parseCommandLine(text);
        if (!commandLine) {
            services_.showHelp();
        } else if (findINIFile(commandLine->sINIFile) && readDefinition() && isUsable() &&
                   selectRecords(*commandLine)) {
            startBatch(commandLine->bNotify);
        }
    }

    [[nodiscard]] CommandLineResult result() const noexcept { return result_; }

  private:
    bool findINIFile(const std::string& name) {
        definition_.sINIFile = name;
        if (FileExists(services_.files, name)) {
            return true;
        }
        if (name.find('\\') == std::string::npos) {
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
                                            .editOutputFolder = [](OutputGrid, std::size_t) {}};
        return validateBatch(definition_, validation) == BatchFault::None;
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
        if (records_.available().empty()) {
            tellSkipped();
            showWarning(services_.desktop,
                        "No files found in folder " + quoted(definition_.sInputFolder) + ".");
            return false;
        }
        records_.selectAll();
        names_ = records_.selected();
        job_ = withResolvedPaths(definition_, services_.files);
        refused_ = refuseUnsafe(job_, names_);
        if (names_.empty()) {
            tellSkipped();
        }
        return !names_.empty();
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

    // Reported by itself: the command line may name a better folder than the definition.
    void listRecords() {
        if (!FolderExists(services_.files, definition_.sInputFolder)) {
            return;
        }
        Listing listing;
        trap(services_.desktop, "frmMain", "Private Sub LoadFiles()", [&] {
            listing =
                services_.files.listFiles(definition_.sInputFolder, definition_.sInputExtensions);
        });
        leftOut_ = std::move(listing.leftOut);
        records_.load(std::move(listing.names));
    }

    void startBatch(bool notify) {
        std::optional<CommandLineBatch> batch =
            createCommandLineBatch(definition_, services_.files, services_.desktop);
        if (!batch) {
            return;
        }
        // A note that nobody can see nobody can close: the batch would wait for that for ever.
        const bool noteIsSeen = notify && services_.desktop.isSeen();
        writeCommandLineBatch(*batch, noteIsSeen, job_, names_,
                              {.files = services_.files,
                               .desktop = services_.desktop,
                               .interpreter = services_.interpreter});
        try {
            services_.events.letRun();
            services_.interpreter.startHidden(batch->commandBatch);
        } catch (...) {
            removeCommandLineBatch(*batch, services_.files);
            throw;
        }
        result_ = CommandLineResult::BatchStarted;
        services_.events.letRun();
        tellSkipped(); // not before the others are under way: nobody may be there to answer
        if (notify && !noteIsSeen) {
            showWarning(services_.desktop,
                        "The note that -n asks for is left out: nobody can see it.");
        }
    }

    BatchDefinition& definition_;
    RecordSelection& records_;
    const CommandLineServices& services_;
    BatchDefinition job_;            // what commands are made by: all its paths are full
    std::vector<std::string> names_; // of the records that get a command
    LeftOut leftOut_;                // by the last listing
    Refused refused_;
    CommandLineResult result_ = CommandLineResult::NothingStarted;
};

} // namespace

CommandLineResult RunCommandLine(BatchDefinition& definition, RecordSelection& records,
                                 const CommandLineServices& services,
                                 std::string_view sTarnwickCommandLine) {
    CommandLineRun run(definition, records, services);
    trap(services.desktop, "frmMain",
         "Public Sub RunCommandLine(ByVal sTarnwickCommandLine As String)",
         [&] { run.run(sTarnwickCommandLine); });
    return run.result();
}

} // namespace tarnwick
