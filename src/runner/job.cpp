#include "runner/job.hpp"

#include "common/full_path.hpp"
#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "definition/resolved_paths.hpp"
#include "platform/wildcard.hpp"
#include "postprocess/configuration_file.hpp"
#include "processing/commands/batch_checks.hpp"
#include "processing/commands/record_names.hpp"
#include "runner/argument_list.hpp"
#include "runner/clashes.hpp"
#include "runner/passed_over.hpp"

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

// A text of several lines is one sentence here.
std::string onOneLine(std::string text) {
    for (auto at = text.find(lineEnd); at != std::string::npos; at = text.find(lineEnd)) {
        text.replace(at, lineEnd.size(), " ");
    }
    return text;
}

class JobCheck {
  public:
    JobCheck(BatchDefinition definition, const JobRequest& request, const JobServices& services)
        : request_(request), services_(services) {
        checked_.job.definition = std::move(definition);
        checked_.job.remarks = remarksOn(request.passedOver, checked_.job.definition);
    }

    CheckedJob run() {
        applyRequest();
        attempt([&] { readConfiguration(); });
        attempt([&] { checkDefinition(); });
        attempt([&] { checkInputFolder(); });
        if (checked_.faults.empty()) {
            attempt([&] { resolvePaths(); });
        }
        if (checked_.faults.empty()) {
            attempt([&] { findRecords(); });
        } else {
            tellMissingDrives();
        }
        return std::move(checked_);
    }

  private:
    BatchDefinition& definition() { return checked_.job.definition; }
    void fault(std::string text) { checked_.faults.push_back(asTyped(std::move(text))); }

    // A path that the user typed is told as paths are typed on this system.
    [[nodiscard]] std::string asTyped(std::string text) const {
        for (const std::string* const path :
             {&request_.inputFolder, &request_.mpExecutable, &request_.cnsExecutable}) {
            const std::string told = quoted(*path);
            if (const auto place = text.find(told); !path->empty() && place != std::string::npos) {
                text.replace(place, told.size(), quoted(shownPath(services_.paths, *path)));
            }
        }
        return text;
    }

    template <typename Step>
    void attempt(const Step& step) {
        try {
            step();
        } catch (const RunTimeError& error) {
            fault(error.record().description + ".");
        }
    }

    void applyRequest() {
        const auto apply = [](const std::string& given, std::string& field) {
            if (!trim(given).empty()) {
                field = trim(given);
            }
        };
        apply(request_.inputFolder, definition().sInputFolder);
        apply(request_.inputExtensions, definition().sInputExtensions);
        apply(request_.mpExecutable, definition().sMPExecutable);
        apply(request_.cnsExecutable, definition().sCNSExecutable);
    }

    void readConfiguration() {
        if (definition().bUseConfigFile == checked &&
            !configurationFault(definition(), services_.files)) {
            inspectConfigurationFile(definition(), services_.files);
        }
    }

    void checkDefinition() {
        if (definition().iProcessMP != checked && definition().iProcessCNS != checked) {
            fault("The definition says neither that CNS nor that MP is to run.");
        }
        if (request_.runsTools && definition().iProcessCNS == checked) {
            checkTool(Tool::CNS, definition().sCNSExecutable);
        }
        if (request_.runsTools && definition().iProcessMP == checked) {
            checkTool(Tool::MP, definition().sMPExecutable);
        }
        add(configurationFault(definition(), services_.files));
        if (!request_.runsTools) {
            return;
        }
        if (services_.paths.separator() != '\\' &&
            (definition().bCfgNamesInput || definition().bCfgNamesOutput)) {
            checked_.job.remarks.emplace_back(
                "The configuration file names files, and MP reads it as it is: these must be "
                "paths of this system.");
        }
        if (definition().bCfgNamesOutput) {
            checked_.job.remarks.emplace_back(
                "The configuration file names the outputs, so that they are not known here: the "
                "records are run one at a time, and always.");
            if (request_.share && request_.share->count > 1) {
                fault(
                    "Such records cannot be shared out: those of two shares would be run at once.");
            }
        } else {
            std::ranges::for_each(outputFaults(definition(), services_.files),
                                  [&](const BatchFault& one) { fault(onOneLine(one.text)); });
        }
    }

    void checkTool(Tool tool, const std::string& executable) {
        if (trim(executable).empty()) {
            fault("No " + std::string(nameOf(tool)) + " executable file is named.");
        } else if (const auto missing = toolFault(definition(), services_.files, tool)) {
            fault(missing->text);
        } else if (!services_.canStart(resolvedFile(definition().sAppFolder, executable))) {
            fault("The " + std::string(nameOf(tool)) + " executable file " + quoted(executable) +
                  " is no program that can be started.");
        }
    }

    void add(const std::optional<BatchFault>& found) {
        if (found) {
            fault(found->text);
        }
    }

    void checkInputFolder() {
        std::string folder = definition().sInputFolder;
        if (trim(folder).empty()) {
            folder = valuePassedOver(request_.passedOver, "Input Folder");
        }
        if (folder.empty()) {
            fault("No input folder is named.");
        } else if (!FolderExists(services_.files, folder)) {
            fault("The input folder " + quoted(folder) + " does not exist.");
        }
    }

    void resolvePaths() {
        std::string& folder = definition().sInputFolder;
        folder = fullPath(folder, services_.files.currentFolder());
        definition() = withResolvedPaths(std::move(definition()), services_.files);
        KnownFolders folders(services_.files);
        for (const auto& [step, command] : recordCalls(definition(), folders, "record")) {
            if (!staysArgumentList(command)) {
                fault("A text of the definition that " + std::string(nameOf(step.tool)) +
                      R"( gets holds a quotation mark, or a path ends in "\".)");
            }
        }
    }

    // One cause of many faults, where a system has no drives of its own.
    void tellMissingDrives() {
        for (const std::string& drive : drivesNamed(definition(), request_.passedOver)) {
            try {
                static_cast<void>(services_.paths.toolPath(drive + "\\"));
            } catch (const RunTimeError& error) {
                if (error.is(ErrorNumber::DeviceUnavailable)) {
                    fault("There is no drive " + drive + " here: --drive " + drive +
                          "=FOLDER says where it lies.");
                }
            }
        }
    }

    void findRecords() {
        const StampedListing& listing =
            checked_.job.listing.emplace(services_.stamps.listStamped(definition().sInputFolder));
        if (listing.leftOut.count > 0 && request_.records.empty()) { // else others are asked for
            checked_.job.refused.push_back(
                {.name = listing.leftOut.first,
                 .why = listing.leftOut.count == 1
                            ? "its name cannot be told here"
                            : "its name cannot be told here, nor those of " +
                                  std::to_string(listing.leftOut.count - 1) + " others"});
        }
        std::vector<StampedFile> records;
        std::ranges::copy_if(
            listing.files, std::back_inserter(records), [&](const StampedFile& file) {
                return matchesAnyWildcard(file.name, definition().sInputExtensions);
            });
        sortByName(records, &StampedFile::name);
        select(records);
        if (records.empty() && checked_.faults.empty() && checked_.job.refused.empty()) {
            fault("No files found in folder " + quoted(definition().sInputFolder) + ".");
        }
        refuseNames(records);
        checked_.job.records = std::move(records);
        refuseClashes(checked_.job, request_.inPlace, services_.files);
        keepShare();
    }

    // Last of all: two records that would make one file may be in two shares.
    void keepShare() {
        if (const auto& share = request_.share) {
            const auto isOthers = [&](const auto& record) { return !isIn(*share, record.name); };
            std::erase_if(checked_.job.records, isOthers);
            std::erase_if(checked_.job.refused, isOthers);
        }
    }

    // Only those that the user has named. A name that fits none is a mistake.
    void select(std::vector<StampedFile>& records) {
        if (request_.records.empty()) {
            return;
        }
        std::vector<bool> asked(request_.records.size());
        std::erase_if(records, [&](const StampedFile& record) {
            bool wanted = false;
            for (std::size_t place = 0; place < asked.size(); ++place) {
                if (matchesWildcard(record.name, request_.records[place])) {
                    asked[place] = true;
                    wanted = true;
                }
            }
            return !wanted;
        });
        for (std::size_t place = 0; place < asked.size(); ++place) {
            if (!asked[place]) {
                const bool hasFolder =
                    request_.records[place].find_first_of("\\/") != std::string::npos;
                fault("No record is named " + quoted(request_.records[place]) +
                      (hasFolder ? ": records are named without their folder." : "."));
            }
        }
    }

    void refuseNames(std::vector<StampedFile>& records) {
        std::erase_if(records, [&](const StampedFile& record) {
            const auto why = whyRefused(record.name);
            if (!why.empty()) {
                checked_.job.refused.push_back({.name = record.name, .why = std::string(why)});
            }
            return !why.empty();
        });
    }

    std::string_view whyRefused(std::string_view name) {
        if (!isPlainName(name)) {
            return "its name holds a character that no Windows name has";
        }
        if (leadsElsewhere(name)) {
            return "Windows opens something else under this name";
        }
        return definition().bCfgNamesOutput && name.starts_with('-')
                   ? "the tool would take its name for an option"
                   : "";
    }

    const JobRequest& request_;
    const JobServices& services_;
    CheckedJob checked_;
};

} // namespace

CheckedJob checkJob(BatchDefinition definition, const JobRequest& request,
                    const JobServices& services) {
    return JobCheck(std::move(definition), request, services).run();
}

std::string shownPath(const ToolPaths& paths, std::string_view path) {
    try {
        return paths.toolPath(path);
    } catch (const RunTimeError&) {
        const std::string folder = GetFolderPath(path); // which may not be there either
        return folder.empty() || folder.size() >= path.size()
                   ? std::string(path)
                   : shownPath(paths, folder) + paths.separator() + GetFileName(path);
    }
}

} // namespace tarnwick
