#include "processing/command_line_mode.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "definition/ini_file.hpp"
#include "postprocess/configuration_file.hpp"
#include "processing/command_line.hpp"
#include "processing/command_line_batch.hpp"
#include "processing/validation.hpp"

#include <optional>
#include <string>

namespace tarnwick {
namespace {

class CommandLineRun {
  public:
    CommandLineRun(BatchDefinition& definition, RecordSelection& records,
                   const CommandLineServices& services)
        : definition_(definition), records_(records), services_(services) {}

    CommandLineResult run(std::string_view text) {
        const std::optional<CommandLine> commandLine = parseCommandLine(text);
        if (!commandLine) {
            services_.showHelp();
            return CommandLineResult::NothingStarted;
        }
        const bool ready = findINIFile(commandLine->sINIFile) && readINIFile() && isUsable() &&
                           selectRecords(*commandLine);
        if (!ready) {
            return CommandLineResult::NothingStarted;
        }
        return startBatch(commandLine->bNotify);
    }

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

    // A file that could not be read to its end is no definition to run: the user has been told,
    // and half of the settings would build the wrong things.
    bool readINIFile() {
        return ReadINIFile(definition_, services_.files, services_.desktop, [this] {
            listRecords();
            if (definition_.bUseConfigFile == checked &&
                FileExists(services_.files, definition_.sConfigFile)) {
                GetCFGValues(definition_, services_.files, services_.desktop, [] {});
            }
        });
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
        override(commandLine);
        if (records_.available().empty()) {
            showWarning(services_.desktop,
                        "No files found in folder " + quoted(definition_.sInputFolder) + ".");
            return false;
        }
        records_.selectAll();
        return true;
    }

    // A folder that does not exist is ignored without a word: the definition's own stays.
    void override(const CommandLine& commandLine) {
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

    void listRecords() {
        if (FolderExists(services_.files, definition_.sInputFolder)) {
            records_.load(
                services_.files.listFiles(definition_.sInputFolder, definition_.sInputExtensions));
        }
    }

    CommandLineResult startBatch(bool notify) {
        const std::optional<CommandLineBatch> batch =
            nameCommandLineBatch(definition_, services_.files, services_.desktop);
        if (!batch) {
            return CommandLineResult::NothingStarted;
        }
        writeCommandLineBatch(*batch, notify, definition_, records_.selected(),
                              {.files = services_.files,
                               .desktop = services_.desktop,
                               .interpreter = services_.interpreter});
        services_.events.letRun();
        try {
            services_.interpreter.startHidden(batch->commandBatch);
        } catch (...) {
            removeCommandLineBatch(*batch, services_.files);
            throw;
        }
        services_.events.letRun();
        return CommandLineResult::BatchStarted;
    }

    BatchDefinition& definition_;
    RecordSelection& records_;
    const CommandLineServices& services_;
};

} // namespace

CommandLineResult RunCommandLine(BatchDefinition& definition, RecordSelection& records,
                                 const CommandLineServices& services,
                                 std::string_view sTarnwickCommandLine) {
    auto result = CommandLineResult::NothingStarted;
    trap(services.desktop, "frmMain",
         "Public Sub RunCommandLine(ByVal sTarnwickCommandLine As String)",
         [&] { result = CommandLineRun(definition, records, services).run(sTarnwickCommandLine); });
    return result;
}

} // namespace tarnwick
